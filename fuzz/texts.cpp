#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/numbers.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml_characters.h>

#include <cmath>

#include "fuzzing.h"

/// The rules that texts of requests and answers go through, by what holds for each.
namespace {

using ktpnaips::Utils::cleanString;
using ktpnaips::Utils::lfToCrLf;

void checkCleaning(const std::wstring& text) {
  const std::wstring clean = cleanString(text);
  const std::wstring single = cleanString(text, true);
  fuzz::require(clean.size() == ktpnaips::trimSpaces(text).size(), "cleaning trims at the ends");
  fuzz::require(cleanString(clean) == clean && cleanString(single, true) == single,
                "what is clean stays as it is");
  fuzz::require(single.find(L"  ") == std::wstring::npos, "collapsed spaces are single");
  std::wstring letters = clean;
  std::wstring singleLetters = single;
  std::erase(letters, L' ');
  std::erase(singleLetters, L' ');
  fuzz::require(letters == singleLetters, "collapsing takes spaces only");
}

void checkLineEnds(const std::wstring& text) {
  const std::wstring lines = lfToCrLf(text);
  fuzz::require(lfToCrLf(lines) == lines, "CR LF stays as it is");
  std::wstring expected;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'\n' && (i == 0 || text[i - 1] != L'\r')) expected += L'\r';
    expected += text[i];
  }
  fuzz::require(lines == expected, "a CR stands before every LF");
}

std::size_t units(std::wstring_view text) {
  std::size_t count = 0;
  for (const wchar_t c : text) count += c > 0xFFFF ? 2U : 1U;
  return count;
}

void checkCut(const std::wstring& text, std::size_t limit) {
  const std::wstring_view cut = ktpnaips::text::firstUnits(text, limit);
  fuzz::require(text.starts_with(cut) && units(cut) <= limit, "a cut is a start that fits");
  fuzz::require(cut.size() == text.size() || units(text.substr(0, cut.size() + 1)) > limit,
                "one character more would not fit");
}

void checkForbidden(const std::wstring& text) {
  const auto harmless = ktpnaips::xml::withoutForbidden(text);
  if (!harmless) return;
  fuzz::require(harmless->size() == text.size() && *harmless != text,
                "a character for a character");
  fuzz::require(!ktpnaips::xml::withoutForbidden(*harmless), "nothing forbidden is left");
}

void checkNumber(const std::wstring& text) {
  try {
    const double number = ktpnaips::leadingNumber(text);
    fuzz::require(std::isfinite(number), "a number is finite");
    const std::int16_t whole = ktpnaips::toInt16(number);
    fuzz::require(std::abs(number - whole) <= 0.5, "the nearest whole number");
  } catch (const ktpnaips::RuntimeFault& fault) {
    fuzz::require(fault.number() == ktpnaips::fault::overflow,
                  "too large is all that can be wrong");
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::size_t limit = input.byte() % 40;
  const std::wstring text = ktpnaips::text::fromUtf8(input.rest());
  checkCleaning(text);
  checkLineEnds(text);
  checkCut(text, limit);
  checkForbidden(text);
  checkNumber(text);
  return 0;
}
