#include "simulator/data/pressure.h"

#include <cmath>
#include <cstdint>
#include <numbers>

#include "simulator/data/noise.h"

namespace sim {

namespace {

constexpr double spacing = 42;    // degrees of longitude between systems
constexpr double dailyDrift = 9;  // degrees of longitude
constexpr double west = 60;
constexpr double east = 200;

struct System {
  double latitude, longitude;
  double variation;  // -1 to 1, kept while it travels
};

// The systems of one chain between the borders; each keeps its number while it moves.
std::vector<System> chain(TimePoint time, double offset, double latitude, double wander,
                          std::uint64_t seed) {
  const double days = static_cast<double>(time.time_since_epoch().count()) / 86400.0;
  const double shift = days * dailyDrift + offset;
  const auto first = static_cast<std::int64_t>(std::floor((west - shift) / spacing));
  const auto last = static_cast<std::int64_t>(std::ceil((east - shift) / spacing));
  std::vector<System> systems;
  for (std::int64_t number = first; number < last; ++number) {
    const auto id = static_cast<std::uint64_t>(number);
    const double variation = noise(seed, id);
    systems.push_back({latitude + wander * noise(seed + 1, id),
                       static_cast<double>(number) * spacing + shift + 5 * noise(seed + 2, id),
                       variation});
  }
  return systems;
}

double bump(double x, double y, double width, double height) {
  return std::exp(-(x * x) / (width * width) - (y * y) / (height * height));
}

// Longitude of the trough line of a low at a latitude.
double troughLongitude(const System& low, double latitude) {
  const double north = latitude - low.latitude;
  return low.longitude + 5 - 0.28 * north - 0.030 * north * north;
}

struct Situation {
  std::vector<System> highs;
  std::vector<System> lows;
};

Situation situationAt(TimePoint time) {
  return {chain(time, 7, -34, 3.5, 11), chain(time, 7 + spacing / 2, -49, 2.5, 23)};
}

// The charts ask for one time many thousand times.
const Situation& cachedSituation(TimePoint time) {
  thread_local TimePoint held = TimePoint::min();
  thread_local Situation situation;
  if (held != time) {
    situation = situationAt(time);
    held = time;
  }
  return situation;
}

double climate(double latitude, double longitude) {
  const double ridge = 5 * bump(0, latitude + 32, 1, 10);
  const double trough = -4 * bump(0, latitude + 11, 1, 9);
  const double south = -26 / (1 + std::exp((latitude + 50) / 3.6));
  const double kimberley = -4.5 * bump(longitude - 122, latitude + 20, 9, 6);
  const double cloncurry = -4 * bump(longitude - 141, latitude + 21.5, 8, 6);
  return 1012.5 + ridge + trough + south + kimberley + cloncurry;
}

}  // namespace

double pressureAt(double latitude, double longitude, TimePoint time) {
  const Situation& situation = cachedSituation(time);
  double pressure = climate(latitude, longitude);
  for (const System& high : situation.highs) {
    pressure += (10 + 4 * high.variation) *
                bump(longitude - high.longitude, latitude - high.latitude, 17, 10);
  }
  for (const System& low : situation.lows) {
    pressure -=
        (14 + 5 * low.variation) * bump(longitude - low.longitude, latitude - low.latitude, 13, 8);
    const double north = latitude - low.latitude;
    pressure -= 6 * bump(longitude - troughLongitude(low, latitude), north - 9, 5, 8);
  }
  return pressure;
}

Gradient pressureGradient(double latitude, double longitude, TimePoint time) {
  constexpr double step = 0.5;
  const double shrink = std::cos(latitude * std::numbers::pi / 180);
  return {(pressureAt(latitude, longitude + step, time) -
           pressureAt(latitude, longitude - step, time)) /
              (2 * step * shrink),
          (pressureAt(latitude + step, longitude, time) -
           pressureAt(latitude - step, longitude, time)) /
              (2 * step)};
}

std::vector<FrontalLow> frontalLows(TimePoint time) {
  std::vector<FrontalLow> result;
  for (const System& low : situationAt(time).lows) {
    FrontalLow front{{low.latitude, low.longitude}, {}, {}};
    for (int half = 1; half <= 38; ++half) {
      const double north = half / 2.0;
      const double latitude = low.latitude + north;
      const double ease = std::exp(-north / 3);  // joins the line to the centre
      front.coldFront.push_back(
          {latitude, troughLongitude(low, latitude) * (1 - ease) + low.longitude * ease});
    }
    for (int half = 2; half <= 26; ++half) {
      const double along = half / 2.0;
      front.warmFront.push_back({low.latitude + 0.8 * std::sin(along / 3) - 0.012 * along * along,
                                 low.longitude + along});
    }
    result.push_back(std::move(front));
  }
  return result;
}

}  // namespace sim
