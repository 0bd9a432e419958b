#pragma once

#include <string>
#include <string_view>

#include "simulator/data/areas.h"
#include "simulator/data/locations.h"
#include "simulator/data/time.h"

namespace sim {

struct Wind {
  int direction;     // degrees true, 10 to 360 in tens
  int speedKt;       // knots
  int temperatureC;  // degrees Celsius
};

// The level is in hundreds of feet, as in FL350.
Wind windAt(double latitude, double longitude, int level, TimePoint time);

// Weather texts: the same place and hour always give the same text; lines end with LF, the last
// one too. The texts of a place that is no aerodrome are empty.
std::string taf(const Location& location, TimePoint from, TimePoint till);
std::string metar(const Location& location, TimePoint time);
std::string speci(const Location& location, TimePoint time);
std::string ttf(const Location& location, TimePoint time);
std::string atis(const Location& location, TimePoint time);
std::string aqnh(const ForecastArea& area, TimePoint from, TimePoint till);
std::string areaForecast(const ForecastArea& area, TimePoint from, TimePoint till);
std::string sigmet(std::string_view fir, TimePoint time);
std::string airmet(std::string_view fir, TimePoint time);

}  // namespace sim
