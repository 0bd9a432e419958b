#include <ktpnaips/platform/xml_characters.h>

#include <cstddef>
#include <cstdint>

namespace ktpnaips::xml {
namespace {

bool isBetween(wchar_t c, std::uint32_t first, std::uint32_t last) {
  const auto code = static_cast<std::uint32_t>(c);
  return code >= first && code <= last;
}

/// True for both halves of a character that takes two UTF-16 units.
bool isHalfOfPair(std::wstring_view text, std::size_t at) {
  if (sizeof(wchar_t) != 2) return false;
  const auto pairAt = [&](std::size_t first) {
    return first + 1 < text.size() && isBetween(text[first], 0xD800, 0xDBFF) &&
           isBetween(text[first + 1], 0xDC00, 0xDFFF);
  };
  return pairAt(at) || (at > 0 && pairAt(at - 1));
}

bool isForbidden(std::wstring_view text, std::size_t at) {
  const wchar_t c = text[at];
  if (isBetween(c, 0x20, 0xD7FF)) return false;
  if (isBetween(c, 0xD800, 0xDFFF)) return !isHalfOfPair(text, at);
  return (isBetween(c, 0, 0x1F) && c != L'\t' && c != L'\n' && c != L'\r') ||
         isBetween(c, 0xFFFE, 0xFFFF) || isBetween(c, 0x110000, 0xFFFFFFFF);
}

}  // namespace

std::optional<std::wstring> withoutForbidden(std::wstring_view text) {
  std::optional<std::wstring> harmless;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!isForbidden(text, at)) continue;
    if (!harmless) harmless = text;
    (*harmless)[at] = L'\uFFFD';
  }
  return harmless;
}

}  // namespace ktpnaips::xml
