#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/property.h>

namespace ktpnaips::rule {

std::wstring Cleaned::apply(std::wstring_view value) {
  return Utils::cleanString(value);
}

std::wstring Collapsed::apply(std::wstring_view value) {
  return Utils::cleanString(value, true);
}

}  // namespace ktpnaips::rule
