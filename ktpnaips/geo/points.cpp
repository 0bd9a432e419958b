#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/numbers.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/geo/points.h>

#include <array>
#include <charconv>
#include <cmath>

namespace ktpnaips {

using modBrevank::addElement;

namespace {

constexpr int decimals = 6;

/// True when the value lies exactly halfway between two neighbours of six decimals: its binary
/// fraction is then an odd number of halves of two to the power of minus six.
bool isHalfway(double magnitude) {
  return std::fmod(std::ldexp(magnitude, decimals + 1), 2.0) == 1.0;
}

/// Six decimals, halves away from zero, and no zero in front of the point.
std::wstring xmlDegrees(double value) {
  double magnitude = std::abs(value);
  if (isHalfway(magnitude)) magnitude = std::nextafter(magnitude, HUGE_VAL);
  std::array<char, 16> digits{};
  const auto [end, error] =
      std::to_chars(digits.begin(), digits.end(), magnitude, std::chars_format::fixed, decimals);
  const char* begin = digits.front() == '0' ? digits.begin() + 1 : digits.begin();
  std::wstring text(value < 0 ? L"-" : L"");
  return text.append(begin, static_cast<const char*>(end));
}

/// Degrees, minutes and hemisphere.
std::wstring routeTextPart(double value, wchar_t positive, wchar_t negative) {
  const double magnitude = std::abs(value);
  const double wholeDegrees = std::floor(magnitude);
  const std::int16_t degrees = toInt16(wholeDegrees);
  const std::int16_t minutes = toInt16((magnitude - wholeDegrees) * 60);
  return decimal(degrees, 2) + decimal(minutes, 2) + (value < 0 ? negative : positive);
}

bool isWithin(double value, double low, double high) {
  return value >= low && value <= high;
}

}  // namespace

NamedPoint::NamedPoint(std::wstring_view name) {
  Name(name);
}

void NamedPoint::appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const {
  if (!Name().empty()) addElement(parent, L"loc", namespaceUri, Name());
}

std::wstring NamedPoint::toString() const {
  return Name();
}

CoordinatePoint::CoordinatePoint(double lat, double lon) : Lat(lat), Lon(lon) {}

void CoordinatePoint::appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const {
  trapped(inClass(L"Point_appendTo", L"CoordinatePoint"), [&] {
    if (!isWithin(Lat(), -90, 90) || !isWithin(Lon(), -180, 180)) return;
    const xml::Node coordinates = addElement(parent, L"coord", namespaceUri);
    addElement(coordinates, L"lat", namespaceUri, xmlDegrees(Lat()));
    addElement(coordinates, L"long", namespaceUri, xmlDegrees(Lon()));
  });
}

std::wstring CoordinatePoint::toString() const {
  return routeTextPart(Lat(), L'N', L'S') + routeTextPart(Lon(), L'E', L'W');
}

BearingDistPoint::BearingDistPoint(std::wstring_view name, std::int16_t bearing,
                                   std::int16_t distance)
    : Bearing(bearing), Distance(distance) {
  Name(name);
}

void BearingDistPoint::appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const {
  if (Name().empty() || !isWithin(Bearing(), 0, 359) || !isWithin(Distance(), 1, 999)) return;
  const xml::Node place = addElement(parent, L"bear-dist", namespaceUri);
  addElement(place, L"loc", namespaceUri, Name());
  addElement(place, L"bear", namespaceUri, decimal(Bearing()));
  addElement(place, L"dist", namespaceUri, decimal(Distance(), 3));
}

std::wstring BearingDistPoint::toString() const {
  return Name() + decimal(Bearing(), 3) + decimal(Distance(), 3);
}

}  // namespace ktpnaips
