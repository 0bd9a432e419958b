#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/platform/text.h>

namespace ktpnaips::rule {

std::wstring Cleaned::apply(std::wstring_view value) {
  return Utils::cleanString(value);
}

std::wstring Collapsed::apply(std::wstring_view value) {
  return Utils::cleanString(value, true);
}

std::wstring collapsedAndCut(std::wstring_view value, std::size_t units) {
  return std::wstring(text::firstUnits(Collapsed::apply(value), units));
}

bool fits(std::wstring_view text, std::size_t units) {
  return text::firstUnits(text, units).size() == text.size();
}

}  // namespace ktpnaips::rule
