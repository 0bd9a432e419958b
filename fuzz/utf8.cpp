#include <ktpnaips/platform/text.h>

#include "fuzzing.h"

/// The conversions, which take runs of ASCII at once, against ones that take byte by byte.
namespace {

constexpr wchar_t replacement = L'\uFFFD';

bool isBetween(std::string_view text, std::size_t at, unsigned first, unsigned last) {
  if (at >= text.size()) return false;
  const auto byte = static_cast<unsigned char>(text[at]);
  return byte >= first && byte <= last;
}

/// A row of the table of well-formed byte sequences: the ranges of the first two bytes.
struct Sequence {
  unsigned first;
  unsigned last;
  unsigned secondFirst;
  unsigned secondLast;
  std::size_t length;
};

constexpr Sequence sequences[] = {{0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
                                  {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3},
                                  {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
                                  {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};

/// The length of the sequence of two bytes and more at this place; 0 for none.
std::size_t lengthAt(std::string_view text, std::size_t at) {
  for (const auto& [first, last, secondFirst, secondLast, length] : sequences) {
    if (!isBetween(text, at, first, last)) continue;
    bool isWhole = isBetween(text, at + 1, secondFirst, secondLast);
    for (std::size_t i = 2; i < length; ++i)
      isWhole = isWhole && isBetween(text, at + i, 0x80, 0xBF);
    return isWhole ? length : 0;
  }
  return 0;
}

std::wstring fromUtf8(std::string_view text) {
  std::wstring wide;
  for (std::size_t at = 0; at < text.size();) {
    const auto lead = static_cast<unsigned char>(text[at]);
    const std::size_t length = lead < 0x80 ? 1 : lengthAt(text, at);
    if (length == 0) {
      wide += replacement;
      ++at;
      continue;
    }
    std::uint32_t code = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
      code = code * 64 + (static_cast<unsigned char>(text[at + i]) & 0x3FU);
    }
    wide += static_cast<wchar_t>(code);
    at += length;
  }
  return wide;
}

/// Characters of any value, also ones that there are not, from groups of four bytes.
std::wstring characters(std::string_view bytes) {
  std::wstring text;
  for (; bytes.size() >= 4; bytes.remove_prefix(4)) {
    std::uint32_t code = 0;
    std::memcpy(&code, bytes.data(), 4);
    text += static_cast<wchar_t>(code % 2 == 0 ? code / 2 % 0x120000 : code / 2);
  }
  return text;
}

bool isCharacter(wchar_t c) {
  const auto code = static_cast<std::uint32_t>(c);
  return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes = fuzz::Input(data, size).rest();
  const std::wstring wide = ktpnaips::text::fromUtf8(bytes);
  fuzz::require(wide == fromUtf8(bytes), "UTF-8 converts as byte by byte");

  std::wstring text = characters(bytes);
  const std::string utf8 = ktpnaips::text::toUtf8(text);
  std::ranges::replace_if(
      text, [](wchar_t c) { return !isCharacter(c); }, replacement);
  fuzz::require(fromUtf8(utf8) == text, "characters convert to UTF-8 and back");
  return 0;
}
