#include "cli/pack/projection.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace cli::pack {
namespace {

constexpr double radiansPerDegree = std::numbers::pi / 180;

}  // namespace

Projection::Projection(Position centre)
    : sine_(std::sin(centre.lat * radiansPerDegree)),
      cosine_(std::cos(centre.lat * radiansPerDegree)),
      lon_(centre.lon) {}

Spot Projection::project(Position at) const {
  constexpr double farthest = 1e-3;  // keeps the point opposite to the centre finite
  const double lat = at.lat * radiansPerDegree;
  const double east = (at.lon - lon_) * radiansPerDegree;
  const double along = std::cos(lat) * std::cos(east);
  const double scale = 2 / std::max(farthest, 1 + sine_ * std::sin(lat) + cosine_ * along);
  return {scale * std::cos(lat) * std::sin(east),
          -scale * (cosine_ * std::sin(lat) - sine_ * along)};
}

Position Projection::unproject(Spot spot) const {
  const double radius = std::hypot(spot.x, spot.y);
  const double arc = 2 * std::atan(radius / 2);
  const double centreLat = std::atan2(sine_, cosine_) / radiansPerDegree;
  if (radius == 0) return {centreLat, lon_};
  const double north = -spot.y / radius;
  const double lat =
      std::asin(std::clamp(std::cos(arc) * sine_ + north * std::sin(arc) * cosine_, -1.0, 1.0));
  const double east = std::atan2(spot.x / radius * std::sin(arc),
                                 cosine_ * std::cos(arc) - north * sine_ * std::sin(arc));
  return {lat / radiansPerDegree, std::remainder(lon_ + east / radiansPerDegree, 360.0)};
}

Position centreOf(const std::vector<Position>& positions) {
  double x = 0;
  double y = 0;
  double z = 0;
  for (const Position& at : positions) {
    const double lat = at.lat * radiansPerDegree;
    const double lon = at.lon * radiansPerDegree;
    x += std::cos(lat) * std::cos(lon);
    y += std::cos(lat) * std::sin(lon);
    z += std::sin(lat);
  }
  constexpr double tooShort = 1e-9;
  if (positions.empty()) return {};
  if (std::hypot(x, y, z) < tooShort) return positions.front();
  return {std::atan2(z, std::hypot(x, y)) / radiansPerDegree, std::atan2(y, x) / radiansPerDegree};
}

}  // namespace cli::pack
