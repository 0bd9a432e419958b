#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/numbers.h>
#include <ktpnaips/core/pattern.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/geo/point_from_name.h>
#include <ktpnaips/platform/lasting.h>

namespace ktpnaips {

std::shared_ptr<Point> Utils::pointFromName(std::wstring_view text) {
  static const platform::Lasting<Pattern> bearingAndDistance(
      L"^([^0-9]+)([012][0-9][0-9]|3[0-5][0-9])([0-9][0-9][0-9])$");
  return trapped<std::shared_ptr<Point>>(
      inModule(L"pointFromName", L"Utils"), [&](std::shared_ptr<Point>& point) {
        const std::wstring name = cleanString(text);
        const auto parts = bearingAndDistance->search(name);
        if (parts.empty()) {
          point = std::make_shared<NamedPoint>(name);
        } else {
          point = std::make_shared<BearingDistPoint>(parts[1], toInt16(leadingNumber(parts[2])),
                                                     toInt16(leadingNumber(parts[3])));
        }
      });
}

}  // namespace ktpnaips
