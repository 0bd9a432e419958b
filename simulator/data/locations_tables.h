#pragma once

#include <span>

#include "simulator/data/locations.h"

namespace sim {

// The tables by region, in no particular order.
std::span<const Location> southEastLocations();
std::span<const Location> northEastLocations();
std::span<const Location> centralAndWesternLocations();
std::span<const Location> pointLocations();

}  // namespace sim
