#pragma once

#include <vector>

#include "simulator/data/geodesy.h"
#include "simulator/data/time.h"

namespace sim {

// A synthetic mean sea level pressure field of the Australian region: highs of the subtropical
// ridge and lows of the Southern Ocean travelling east, a heat low and the tropical trough.
double pressureAt(double latitude, double longitude, TimePoint time);  // hPa

// The gradient towards east and north in hPa per degree of latitude.
struct Gradient {
  double east;
  double north;
};
Gradient pressureGradient(double latitude, double longitude, TimePoint time);

// A low of the Southern Ocean with its fronts.
struct FrontalLow {
  GeoPoint centre;
  std::vector<GeoPoint> coldFront;  // from the low towards the equator
  std::vector<GeoPoint> warmFront;  // from the low towards the east
};
std::vector<FrontalLow> frontalLows(TimePoint time);

}  // namespace sim
