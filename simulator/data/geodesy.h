#pragma once

#include <string>

namespace sim {

struct GeoPoint {
  double latitude;
  double longitude;
};

// On a sphere, in nautical miles and degrees true.
double distanceBetween(GeoPoint from, GeoPoint to);
GeoPoint pointAt(GeoPoint from, double bearing, double distance);
GeoPoint pointBetween(GeoPoint from, GeoPoint to, double fraction);

// Degrees and minutes, as in "3352S15112E".
std::string compactText(GeoPoint point);

// "-33.946100".
std::string decimalDegrees(double degrees);

}  // namespace sim
