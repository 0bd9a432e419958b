#pragma once

#include <chrono>
#include <optional>

#include "simulator/data/time.h"

namespace sim {

struct Daylight {
  std::optional<TimePoint> first;  // beginning of morning civil twilight
  std::optional<TimePoint> last;   // end of evening civil twilight
};

// Of the local day (by mean solar time at the longitude) that bears the date; times in UTC. Both
// are empty where the sun does not cross 6 degrees below the horizon on that day.
Daylight daylight(double latitude, double longitude, std::chrono::year_month_day date);

}  // namespace sim
