#include "simulator/place.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "simulator/data/routes.h"
#include "simulator/data/text.h"

namespace sim {
namespace {

std::string threeDigits(const std::string& number) {
  return std::string(3 - std::min<std::size_t>(3, number.size()), '0') + number;
}

// The schema has seen to the form of the numbers.
double number(const XmlView& holder, std::string_view name) {
  const std::string text = holder.childText(name);
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

Place coordinates(const XmlView& coord) {
  Place place;
  place.position = GeoPoint{number(coord, "lat"), number(coord, "long")};
  place.text = compactText(*place.position);
  return place;
}

Place bearingDistance(const XmlView& element) {
  Place place = placeNamed(element.childText("loc"));
  place.text += threeDigits(element.childText("bear")) + element.childText("dist");
  if (place.position) {  // bearings are magnetic
    place.position = pointAt(*place.position, number(element, "bear") + place.location->magVar,
                             number(element, "dist"));
  }
  return place;
}

}  // namespace

Place placeNamed(std::string_view name) {
  Place place;
  place.text = trimmedUpperCase(name);
  place.name = place.text;
  place.location = findLocation(place.text);
  if (place.location != nullptr) {
    place.position = GeoPoint{place.location->latitude, place.location->longitude};
  }
  return place;
}

Place placeIn(const XmlView& holder) {
  const std::vector<XmlView> points = holder.children();
  if (points.empty()) {
    return {};
  }
  const XmlView& point = points.front();
  if (point.name() == "coord") {
    return coordinates(point);
  }
  return point.name() == "bear-dist" ? bearingDistance(point) : placeNamed(point.text());
}

bool isKnown(const Place& place) {
  return place.position.has_value() || isAerodrome(place.name);
}

bool isAerodrome(std::string_view code) {
  if (const Location* location = findLocation(code)) {
    return location->kind == 'A';
  }
  return std::ranges::any_of(routes(), [&](const StandardRoute& route) {
    return equalIgnoringCase(code, route.adep) || equalIgnoringCase(code, route.ades);
  });
}

}  // namespace sim
