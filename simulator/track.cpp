#include "simulator/track.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "simulator/data/weather_groups.h"

namespace sim {
namespace {

constexpr double longLeg = 240;  // nautical miles
constexpr double defaultSpeed = 100;

int numberIn(std::string_view text) {
  const std::size_t first = text.find_first_of("0123456789");
  int value = 0;
  if (first != std::string_view::npos) {
    std::from_chars(text.data() + first, text.data() + text.size(), value);
  }
  return value;
}

TimePoint after(TimePoint start, double distance, double speedKt) {
  return start + std::chrono::minutes(std::lround(distance / speedKt * 60));
}

// The fixes of a leg behind its first place.
void addLeg(std::vector<Fix>& fixes, const Place& to, double speedKt) {
  const Fix from = fixes.back();
  const double length = distanceBetween(from.position, *to.position);
  const int parts = static_cast<int>(length / longLeg) + 1;
  for (int part = 1; part < parts; ++part) {
    const double fraction = static_cast<double>(part) / parts;
    const GeoPoint at = pointBetween(from.position, *to.position, fraction);
    fixes.push_back({compactText(at), at, after(from.time, fraction * length, speedKt)});
  }
  fixes.push_back({to.text, *to.position, after(from.time, length, speedKt)});
}

}  // namespace

std::vector<Fix> track(const std::vector<Place>& places, TimePoint etd, double speedKt) {
  std::vector<Fix> fixes;
  for (const Place& place : places) {
    if (!place.position) {
      continue;
    }
    if (fixes.empty()) {
      fixes.push_back({place.text, *place.position, etd});
    } else {
      addLeg(fixes, place, speedKt);
    }
  }
  return fixes;
}

double speedInKnots(std::string_view trueAirspeed) {
  const int number = numberIn(trueAirspeed);
  if (number == 0) {
    return defaultSpeed;
  }
  switch (trueAirspeed.front()) {
    case 'K':
      return number / 1.852;
    case 'M':
      return number * 5.8;  // hundredths of the speed of sound at altitude
    default:
      return number;
  }
}

int flightLevel(std::string_view level) {
  return numberIn(level);
}

std::string windText(const Wind& wind) {
  char text[32];
  const int length = std::snprintf(text, sizeof text, "%03d%02d ", wind.direction, wind.speedKt);
  return std::string(text, static_cast<std::size_t>(length)) + temperatureGroup(wind.temperatureC);
}

}  // namespace sim
