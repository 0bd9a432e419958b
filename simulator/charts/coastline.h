#pragma once

#include <span>

namespace sim {

// Degrees, south negative; a shape closes from its last point to its first.
struct CoastPoint {
  double latitude;
  double longitude;
};

using CoastShape = std::span<const CoastPoint>;

CoastShape australiaCoast();  // the mainland
std::span<const CoastShape> islandCoasts();

}  // namespace sim
