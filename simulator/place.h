#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulator/data/geodesy.h"
#include "simulator/data/locations.h"
#include "simulator/xml.h"

namespace sim {

// A place as a request names it.
struct Place {
  std::string text;  // "YSSY", "3352S15112E", "SY045025"; empty when none is given
  std::string name;  // the location that it hangs on; empty for coordinates
  const Location* location = nullptr;  // that one, when it is known
  std::optional<GeoPoint> position;    // where it is known
};

Place placeNamed(std::string_view name);

// The point in an element: loc, coord or bear-dist.
Place placeIn(const XmlView& holder);

// Whether it can be told where it is.
bool isKnown(const Place& place);

// An aerodrome of the data set, or one that a standard route leads to.
bool isAerodrome(std::string_view code);

}  // namespace sim
