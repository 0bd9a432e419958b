#pragma once

#include <string>

#include "simulator/data/atmosphere.h"

namespace sim {

std::string twoDigits(int value);
std::string windGroup(const Surface& surface);      // "16012KT", "24025G38KT", "00000KT"
std::string weatherGroups(const Surface& surface);  // "9999 SHRA FEW020 BKN040" or "CAVOK"
std::string temperatureGroup(int temperature);      // "M02"

}  // namespace sim
