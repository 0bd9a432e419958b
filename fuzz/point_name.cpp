#include <ktpnaips/core/conversions.h>
#include <ktpnaips/geo/point_from_name.h>
#include <ktpnaips/platform/text.h>

#include "fuzzing.h"

/// Points of designators against a reading of the last six characters.
namespace {

using ktpnaips::BearingDistPoint;
using ktpnaips::NamedPoint;
using ktpnaips::Utils::cleanString;
using ktpnaips::Utils::pointFromName;

bool isDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

bool endsInBearingAndDistance(std::wstring_view name) {
  if (name.size() < 7) return false;
  const std::wstring_view place = name.substr(0, name.size() - 6);
  const std::wstring_view digits = name.substr(name.size() - 6);
  return std::ranges::none_of(place, isDigit) && std::ranges::all_of(digits, isDigit) &&
         digits.substr(0, 3) < L"360";
}

std::int16_t number(std::wstring_view digits) {
  return static_cast<std::int16_t>(std::stoi(std::wstring(digits)));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text = ktpnaips::text::fromUtf8(fuzz::Input(data, size).rest());
  const auto point = pointFromName(text);
  fuzz::require(point != nullptr, "every designator gives a point");
  const std::wstring name = cleanString(text);
  if (endsInBearingAndDistance(name)) {
    const std::size_t digits = name.size() - 6;
    const auto* place = dynamic_cast<const BearingDistPoint*>(point.get());
    fuzz::require(place != nullptr && place->Name() == cleanString(name.substr(0, digits)) &&
                      place->Bearing() == number(name.substr(digits, 3)) &&
                      place->Distance() == number(name.substr(digits + 3)),
                  "six digits at the end are bearing and distance");
  } else {
    const auto* place = dynamic_cast<const NamedPoint*>(point.get());
    fuzz::require(place != nullptr && place->Name() == name, "anything else is a named point");
  }
  const std::wstring written = point->toString();
  fuzz::require(pointFromName(written)->toString() == written,
                "a point that is written reads back");
  return 0;
}
