#include "simulator/data/atmosphere.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "simulator/data/noise.h"
#include "simulator/data/pressure.h"
#include "simulator/data/weather.h"

namespace sim {

namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double lapsePerLevel = 0.1981;  // degrees Celsius per 100 ft
constexpr double tropopauseTemperature = -62;

struct Flow {
  double east, north;  // knots
};

// 1 in the middle of January, -1 in the middle of July.
double summer(TimePoint time) {
  const double days = static_cast<double>(time.time_since_epoch().count()) / 86400.0;
  return std::cos((days - 15) / 365.25 * 2 * std::numbers::pi);
}

double seaLevelTemperature(double latitude, TimePoint time) {
  const double distance = std::abs(latitude) / 45;
  return 29 - 17 * distance * distance + 5.5 * std::min(1.0, distance) * summer(time);
}

Flow geostrophic(double latitude, double longitude, TimePoint time) {
  const Gradient gradient = pressureGradient(latitude, longitude, time);
  // Near the equator the balance does not hold: keep the divisor from vanishing.
  const double turn = 2 * 7.292e-5 * std::sin(std::min(latitude, -16.0) * degree);
  const double factor = 100 / 111195.0 / (1.2 * turn) * 1.944;
  return {-factor * gradient.north, factor * gradient.east};
}

Wind toWind(Flow flow, double temperature) {
  const double speed = std::hypot(flow.east, flow.north);
  const double from = std::atan2(-flow.east, -flow.north) / degree;
  int direction = static_cast<int>(std::lround(from / 10)) * 10;
  if (direction <= 0) {
    direction += 360;
  }
  return {direction, static_cast<int>(std::lround(speed)),
          static_cast<int>(std::lround(temperature))};
}

// Friction slows the wind and turns it towards the lower pressure.
Flow surfaceFlow(double latitude, double longitude, TimePoint time) {
  const Flow free = geostrophic(latitude, longitude, time);
  const double turn = -22 * degree;
  return {0.55 * (free.east * std::cos(turn) - free.north * std::sin(turn)),
          0.55 * (free.east * std::sin(turn) + free.north * std::cos(turn))};
}

// -1 to 1 over the length of one travelling system.
double jetWave(double longitude, TimePoint time) {
  const double days = static_cast<double>(time.time_since_epoch().count()) / 86400.0;
  return std::sin((longitude - 9 * days) * degree * 360 / 42);
}

Flow jet(double latitude, double longitude, int level, TimePoint time) {
  const double share = std::pow(std::min(level, 450) / 390.0, 1.3);
  const double offset = (latitude - jetLatitude(longitude, time)) / 8;
  return {share * (25 + 85 * std::exp(-offset * offset)) * (latitude > -12 ? 0.3 : 1.0),
          share * 22 * jetWave(longitude, time)};
}

int roundTo(double value, int step) {
  return static_cast<int>(std::lround(value / step)) * step;
}

}  // namespace

double airTemperature(double latitude, int level, TimePoint time) {
  return std::max(seaLevelTemperature(latitude, time) - lapsePerLevel * level,
                  tropopauseTemperature);
}

double jetLatitude(double longitude, TimePoint time) {
  return -31 + 3 * jetWave(longitude, time);
}

int freezingLevel(double latitude, TimePoint time) {
  return roundTo(seaLevelTemperature(latitude, time) / lapsePerLevel, 5);
}

Wind windAt(double latitude, double longitude, int level, TimePoint time) {
  const double height = std::clamp(level, 0, 600) / 390.0;
  Flow flow = surfaceFlow(latitude, longitude, time);
  if (level > 10) {
    const Flow free = geostrophic(latitude, longitude, time);
    const Flow upper = jet(latitude, longitude, level, time);
    const double fade = std::max(0.25, 1 - 0.7 * height);
    flow = {free.east * fade + upper.east, free.north * fade + upper.north};
  }
  return toWind(flow, airTemperature(latitude, level, time));
}

Surface surfaceAt(const Location& location, TimePoint time) {
  const auto hour = static_cast<std::uint64_t>(
      std::chrono::floor<std::chrono::hours>(time).time_since_epoch().count());
  const std::uint64_t seed = seedOf(location.code);
  const std::uint64_t spell = hour / 6;
  const double localHour =
      std::fmod(static_cast<double>(hour % 24) + location.longitude / 15, 24.0);
  const double warmth = std::cos((localHour - 14.5) / 24 * 2 * std::numbers::pi);

  Surface s{};
  const Wind wind = toWind(surfaceFlow(location.latitude, location.longitude, time), 0);
  s.speedKt = std::clamp(
      wind.speedKt + pick(seed, hour, -2, 3) + static_cast<int>(std::lround(3 * warmth)), 0, 38);
  s.direction = (wind.direction + 10 * pick(seed, hour + 1, -1, 1) + 350) % 360 + 10;
  s.gustKt = s.speedKt >= 20 ? s.speedKt + pick(seed, hour, 10, 15) : 0;
  if (s.speedKt < 2) {
    s.direction = s.speedKt = 0;
  }

  const double pressure = pressureAt(location.latitude, location.longitude, time);
  s.qnh = static_cast<int>(std::floor(pressure + 0.6 * noise(seed, hour)));
  const double height = location.elevationFt / 100.0 * lapsePerLevel;
  s.temperatureC = static_cast<int>(std::lround(seaLevelTemperature(location.latitude, time) -
                                                height + 4 * warmth + noise(seed, spell)));
  const double wetness = std::clamp((1016 - pressure) / 10 + noise(seed, spell), -1.0, 1.6);
  s.dewPointC =
      s.temperatureC - std::max(1, static_cast<int>(std::lround(9 - 5 * wetness + 2 * warmth)));

  if (wetness > 1.1) {
    s.showers = location.latitude > -28 && warmth > 0 ? 2 : 1;
  }
  s.visibilityM = s.showers == 2 ? 3000 : s.showers == 1 ? 7000 : 9999;
  s.lowOktas = std::clamp(static_cast<int>(std::lround(2 + 3 * wetness)), 0, 7);
  s.lowBaseFt = std::clamp(roundTo(400.0 * (s.temperatureC - s.dewPointC), 100), 600, 6000);
  s.highOktas = pick(seed, spell + 2, 0, 6);
  s.highBaseFt = s.lowBaseFt + 1000 * pick(seed, spell + 3, 4, 9);
  return s;
}

}  // namespace sim
