#include <ktpnaips/briefing/base64.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>

#include <optional>

#include "fuzzing.h"

/// The decoder of both forms of text against one that knows nothing but the rule.
namespace {

using ktpnaips::RuntimeFault;

struct Outcome {
  std::string bytes;
  std::int32_t fault = 0;

  bool operator==(const Outcome&) const = default;
};

unsigned digit(wchar_t c) {
  constexpr std::wstring_view alphabet =
      L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  const auto value = alphabet.find(c);
  return value == std::wstring_view::npos ? 0 : static_cast<unsigned>(value);
}

Outcome plainly(std::wstring text) {
  std::erase_if(text, [](wchar_t c) { return c == L'\r' || c == L'\n'; });
  if (text.size() % 4 != 0) return {{}, ktpnaips::fault::invalidBase64};
  if (text.empty()) return {{}, ktpnaips::fault::subscriptOutOfRange};
  Outcome outcome;
  for (std::size_t i = 0; i < text.size(); i += 4) {
    unsigned group = 0;
    for (std::size_t place = 0; place < 4; ++place) group = group * 64 + digit(text[i + place]);
    for (const unsigned shift : {16U, 8U, 0U}) {
      outcome.bytes += static_cast<char>(group >> shift & 0xFFU);
    }
  }
  if (text.find(L"==") != std::wstring::npos) {
    outcome.bytes.resize(outcome.bytes.size() - 2);
  } else if (text.find(L'=') != std::wstring::npos) {
    outcome.bytes.resize(outcome.bytes.size() - 1);
  }
  return outcome;
}

template <class Text>
Outcome decoded(const Text& text) {
  try {
    return {ktpnaips::Enc64::MyDecode(text), 0};
  } catch (const RuntimeFault& fault) {
    return {{}, fault.number()};
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring wide = ktpnaips::text::fromUtf8(fuzz::Input(data, size).rest());
  const Outcome expected = plainly(wide);
  fuzz::require(decoded(wide) == expected, "wide text decodes by the rule");
  fuzz::require(decoded(ktpnaips::text::toUtf8(wide)) == expected, "UTF-8 decodes by the rule");
  return 0;
}
