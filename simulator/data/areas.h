#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "simulator/data/locations.h"

namespace sim {

struct ForecastArea {
  std::string_view code;
  std::string_view name;
  std::vector<std::string_view> locationCodes;  // aerodromes in the area
};

// Flight information regions, graphical area forecast areas and numbered areas.
std::span<const ForecastArea> areas();

// The code is compared without regard to case; nullptr when it is unknown.
const ForecastArea* findArea(std::string_view code);

bool isFir(const ForecastArea& area);

// "YMMM" or "YBBB".
std::string_view firOf(const Location& location);
std::string_view firOf(const ForecastArea& area);

}  // namespace sim
