#include "cli/pack/great_circle.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace cli::pack {
namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double earthRadius = 6371.0088 / 1.852;  // nautical miles

}  // namespace

double distanceBetween(Position from, Position to) {
  const double height = std::sin((to.lat - from.lat) * degree / 2);
  const double width = std::sin((to.lon - from.lon) * degree / 2);
  const double haversine =
      height * height + std::cos(from.lat * degree) * std::cos(to.lat * degree) * width * width;
  return 2 * earthRadius * std::asin(std::sqrt(std::min(1.0, haversine)));
}

double trackBetween(Position from, Position to) {
  const double start = from.lat * degree;
  const double end = to.lat * degree;
  const double east = (to.lon - from.lon) * degree;
  const double track = std::atan2(
      std::sin(east) * std::cos(end),
      std::cos(start) * std::sin(end) - std::sin(start) * std::cos(end) * std::cos(east));
  const double degrees = track / degree;
  return degrees < 0 ? degrees + 360 : degrees;
}

Position destinationOf(Position from, double track, double distance) {
  const double arc = distance / earthRadius;
  const double lat = from.lat * degree;
  const double sine =
      std::sin(lat) * std::cos(arc) + std::cos(lat) * std::sin(arc) * std::cos(track * degree);
  const double east = std::atan2(std::sin(track * degree) * std::sin(arc) * std::cos(lat),
                                 std::cos(arc) - std::sin(lat) * sine);
  return {std::asin(std::clamp(sine, -1.0, 1.0)) / degree,
          std::remainder(from.lon + east / degree, 360.0)};
}

Position positionBetween(Position from, Position to, double fraction) {
  return destinationOf(from, trackBetween(from, to), distanceBetween(from, to) * fraction);
}

}  // namespace cli::pack
