#include "simulator/data/light.h"

#include <cmath>
#include <numbers>

namespace sim {

namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double twilightAltitude = -6;

struct Sun {
  double declination;     // degrees
  double equationOfTime;  // minutes
};

// Low-precision solar position of the astronomical almanacs, good to about 0.01 degree.
Sun sunAt(double daysSince2000) {
  const double meanLongitude = 280.460 + 0.9856474 * daysSince2000;
  const double anomaly = (357.528 + 0.9856003 * daysSince2000) * degree;
  const double longitude =
      (meanLongitude + 1.915 * std::sin(anomaly) + 0.020 * std::sin(2 * anomaly)) * degree;
  const double obliquity = (23.439 - 0.0000004 * daysSince2000) * degree;
  const double rightAscension =
      std::atan2(std::cos(obliquity) * std::sin(longitude), std::cos(longitude)) / degree;
  const double difference = std::remainder(meanLongitude - rightAscension, 360);
  return {std::asin(std::sin(obliquity) * std::sin(longitude)) / degree, 4 * difference};
}

// The moment at which the sun passes the twilight altitude; sign -1 before noon, +1 after it.
std::optional<TimePoint> crossing(double latitude, double longitude, double midnight, double sign) {
  double day = midnight + 0.5 - longitude / 360;
  for (int round = 0; round < 5; ++round) {
    const Sun sun = sunAt(day);
    const double noon = midnight + 0.5 - longitude / 360 - sun.equationOfTime / 1440;
    const double cosine = (std::sin(twilightAltitude * degree) -
                           std::sin(latitude * degree) * std::sin(sun.declination * degree)) /
                          (std::cos(latitude * degree) * std::cos(sun.declination * degree));
    if (!(cosine >= -1 && cosine <= 1)) {
      return std::nullopt;
    }
    day = noon + sign * std::acos(cosine) / degree / 360;
  }
  using namespace std::chrono;
  constexpr TimePoint epoch = sys_days{2000y / January / 1} + 12h;
  return epoch + seconds{std::llround(day * 86400)};
}

}  // namespace

Daylight daylight(double latitude, double longitude, std::chrono::year_month_day date) {
  using namespace std::chrono;
  const double midnight =
      static_cast<double>((sys_days{date} - sys_days{2000y / January / 1}).count()) - 0.5;
  return {crossing(latitude, longitude, midnight, -1), crossing(latitude, longitude, midnight, 1)};
}

}  // namespace sim
