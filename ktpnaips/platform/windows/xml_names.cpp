#include <ktpnaips/platform/windows/xml_document.h>

#include <algorithm>
#include <array>

namespace ktpnaips::xml {
namespace {

struct Range {
  wchar_t first;
  wchar_t last;
};

/// Where names may start; the halves of characters that take two UTF-16 units included.
constexpr std::array starts{
    Range{L'A', L'Z'},           Range{L'_', L'_'},           Range{L'a', L'z'},
    Range{L'\u00C0', L'\u00D6'}, Range{L'\u00D8', L'\u00F6'}, Range{L'\u00F8', L'\u02FF'},
    Range{L'\u0370', L'\u037D'}, Range{L'\u037F', L'\u1FFF'}, Range{L'\u200C', L'\u200D'},
    Range{L'\u2070', L'\u218F'}, Range{L'\u2C00', L'\u2FEF'}, Range{L'\u3001', L'\uD7FF'},
    Range{0xD800, 0xDFFF},       Range{L'\uF900', L'\uFDCF'}, Range{L'\uFDF0', L'\uFFFD'}};

/// What else they may hold.
constexpr std::array others{Range{L'-', L'.'}, Range{L'0', L'9'}, Range{L'\u00B7', L'\u00B7'},
                            Range{L'\u0300', L'\u036F'}, Range{L'\u203F', L'\u2040'}};

template <class Ranges>
bool isIn(const Ranges& ranges, wchar_t c) {
  return std::ranges::any_of(ranges,
                             [c](const Range& each) { return c >= each.first && c <= each.last; });
}

bool isUnqualifiedName(std::wstring_view name) {
  return !name.empty() && isIn(starts, name.front()) &&
         std::ranges::all_of(name, [](wchar_t c) { return isIn(starts, c) || isIn(others, c); });
}

}  // namespace

bool isQualifiedName(std::wstring_view name) {
  const auto colon = name.find(L':');
  if (colon == std::wstring_view::npos) return isUnqualifiedName(name);
  return isUnqualifiedName(name.substr(0, colon)) && isUnqualifiedName(name.substr(colon + 1));
}

}  // namespace ktpnaips::xml
