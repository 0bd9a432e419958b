#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What the halves of the DOM have in common.
namespace ktpnaips::xml {

inline constexpr std::size_t mostLevels = 1000;
inline constexpr std::wstring_view tooDeep = L"elements are nested more than 1,000 deep";

/// What a platform counts for each handle.
void retain(void* owner, void* node) noexcept;
void release(void* owner, void* node) noexcept;

[[noreturn]] void refuseName(std::wstring_view qualifiedName);
/// Of a prefix that the element uses for another namespace.
[[noreturn]] void refusePrefix();
[[noreturn]] void refuseParent();
[[noreturn]] void refuseSecondDocumentElement();
/// When it is serialised.
[[noreturn]] void refuseDepth();

/// The name that a node gets whose name XML allows: no prefix stands for no namespace. Throws for
/// what namespaces reserve.
std::wstring_view nameWithin(std::wstring_view namespaceUri, std::wstring_view qualifiedName);

template <class Char>
constexpr std::string_view reference(Char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    default:
      return "&#13;";
  }
}

/// Appends a text as it stands in markup.
template <class Char>
void escape(std::basic_string<Char>& to, std::basic_string_view<Char> text, bool inAttribute) {
  std::size_t written = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const Char c = text[at];
    const bool isSpecial = c == '&' || c == '<' || c == '>' || c == '\r' ||
                           (inAttribute && (c == '"' || c == '\n' || c == '\t'));
    if (!isSpecial) continue;
    to.append(text, written, at - written);
    for (const char each : reference(c)) to += static_cast<Char>(each);
    written = at + 1;
  }
  to.append(text, written);
}

}  // namespace ktpnaips::xml
