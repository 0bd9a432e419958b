#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "simulator/data/atmosphere.h"
#include "simulator/data/noise.h"
#include "simulator/data/weather.h"
#include "simulator/data/weather_groups.h"

namespace sim {

namespace {

using std::chrono::floor;
using std::chrono::hours;

struct Summary {
  double latitude, longitude;  // of the middle
  int lowestQnh;
  int wettest;  // as Surface::showers
  int cloudBase;
};

Summary summarise(const ForecastArea& area, TimePoint time) {
  Summary result{-27, 134, 1050, 0, 9000};
  double latitude = 0;
  double longitude = 0;
  int count = 0;
  for (const auto code : area.locationCodes) {
    if (const Location* location = findLocation(code)) {
      const Surface s = surfaceAt(*location, time);
      latitude += location->latitude;
      longitude += location->longitude;
      ++count;
      result.lowestQnh = std::min(result.lowestQnh, s.qnh);
      result.wettest = std::max(result.wettest, s.showers);
      result.cloudBase = std::min(result.cloudBase, s.lowBaseFt);
    }
  }
  if (count > 0) {
    result.latitude = latitude / count;
    result.longitude = longitude / count;
  }
  return result;
}

std::string period(TimePoint from, TimePoint till) {
  return dayHourMinute(from) + '/' + dayHourMinute(till);
}

std::string windTable(const Summary& middle, TimePoint time) {
  std::string text = "WIND AND TEMPERATURE:\n";
  for (const int level : {20, 50, 70, 100, 140, 185}) {
    const Wind wind = windAt(middle.latitude, middle.longitude, level, time);
    const std::string direction = std::to_string(wind.direction);
    text += level < 100 ? std::to_string(level * 100) + "FT" : "FL" + std::to_string(level);
    text += ' ' + std::string(3 - direction.size(), '0') + direction + '/' +
            twoDigits(wind.speedKt) + ' ' + (wind.temperatureC < 0 ? "MS" : "PS") +
            twoDigits(std::abs(wind.temperatureC)) + '\n';
  }
  return text;
}

std::string position(double latitude, double longitude) {
  const auto part = [](double value, int width) {
    const int minutesOfArc = static_cast<int>(std::lround(value * 60)) / 10 * 10;
    const std::string degrees = twoDigits(minutesOfArc / 60);
    return std::string(width == 3 && degrees.size() < 3 ? "0" : "") + degrees +
           twoDigits(minutesOfArc % 60);
  };
  return 'S' + part(-latitude, 2) + " E" + part(longitude, 3);
}

struct Fir {
  std::string_view name;
  double latitude, longitude;  // where its weather is put
};

Fir firCentre(std::string_view code) {
  return code == "YBBB" ? Fir{"BRISBANE FIR", -22.0, 147.5} : Fir{"MELBOURNE FIR", -35.5, 146.5};
}

std::string polygon(double latitude, double longitude, double height, double width) {
  return position(latitude + height, longitude - width) + " - " +
         position(latitude + height * 0.8, longitude + width) + " - " +
         position(latitude - height, longitude + width * 0.9) + " - " +
         position(latitude - height * 0.9, longitude - width * 0.8);
}

struct Hazard {
  std::string_view phenomenon;
  std::string_view levels;
};

std::string warning(std::string_view kind, std::string_view fir, TimePoint time,
                    const Hazard& hazard, int number) {
  const TimePoint day = floor<std::chrono::days>(time);
  const TimePoint start = day + hours{4 * ((time - day) / hours{4})};
  const Fir region = firCentre(fir);
  const auto seed = seedOf(fir) + static_cast<std::uint64_t>(start.time_since_epoch().count());
  const double latitude = region.latitude + 2 * noise(seed, 1);
  const double longitude = region.longitude + 2 * noise(seed, 2);
  const std::string code(fir);
  return code + ' ' + std::string(kind) + ' ' + static_cast<char>('A' + pick(seed, 3, 0, 25)) +
         twoDigits(number) + " VALID " + period(start, start + hours{4}) + ' ' +
         (fir == "YBBB" ? "YBRF" : "YMRF") + "-\n" + code + ' ' + std::string(region.name) + ' ' +
         std::string(hazard.phenomenon) + " FCST WI " + polygon(latitude, longitude, 1.6, 2.1) +
         ' ' + std::string(hazard.levels) + " MOV E " + std::to_string(pick(seed, 4, 2, 7) * 5) +
         "KT " + (pick(seed, 5, 0, 1) == 0 ? "NC" : "WKN") + "=\n";
}

}  // namespace

std::string aqnh(const ForecastArea& area, TimePoint from, TimePoint till) {
  const TimePoint day = floor<std::chrono::days>(from);
  TimePoint start = day + hours{3 * ((from - day) / hours{3})};
  std::string text;
  do {
    const Summary s = summarise(area, start);
    text += "AREA QNH " + period(start, start + hours{3}) + "\nAREA " + std::string(area.code) +
            ": " + std::to_string(s.lowestQnh) + '\n';
    start += hours{3};
  } while (start < till && start < from + hours{24});
  return text;
}

std::string areaForecast(const ForecastArea& area, TimePoint from, TimePoint till) {
  const TimePoint day = floor<std::chrono::days>(from);
  const TimePoint start = day + hours{6 * ((from - day) / hours{6})};
  const TimePoint end = start + (till > start + hours{6} ? hours{12} : hours{6});
  const Summary s = summarise(area, start);
  static constexpr std::array<std::string_view, 3> weather = {
      "NIL SIGNIFICANT WEATHER.", "SCT SHRA. VIS 4000M IN SHRA.",
      "ISOL TSRA, SCT SHRA. VIS 2000M IN TSRA."};
  static constexpr std::array<std::string_view, 3> cloud = {
      "SCT CU/SC ", "BKN ST 1000/2000FT IN SHRA. SCT CU/SC ", "ISOL CB 4000FT/FL400. BKN CU/SC "};
  const auto kind = static_cast<std::size_t>(s.wettest);
  const int base = std::max(1000, s.cloudBase / 500 * 500);
  return "AREA FORECAST " + period(start, end) + " AREA " + std::string(area.code) + ' ' +
         std::string(area.name) + "\nWEATHER: " + std::string(weather[kind]) +
         "\nCLOUD: " + std::string(cloud[kind]) + std::to_string(base) + '/' +
         std::to_string(base + 4000) +
         "FT.\nICING: " + (s.wettest > 0 ? "MOD IN CU ABV FZLVL." : "NIL SIGNIFICANT.") +
         "\nTURBULENCE: " +
         (s.wettest > 0 ? "MOD IN CU. SEV IN CB." : "ISOL MOD THERMAL BLW 6000FT.") +
         "\nFREEZING LEVEL: " + std::to_string(freezingLevel(s.latitude, start) * 100) + "FT\n" +
         windTable(s, start);
}

std::string sigmet(std::string_view fir, TimePoint time) {
  const bool tropical = fir == "YBBB";
  return warning("SIGMET", fir, time,
                 tropical ? Hazard{"EMBD TS", "TOP FL450"} : Hazard{"SEV TURB", "FL240/340"}, 1);
}

std::string airmet(std::string_view fir, TimePoint time) {
  const bool tropical = fir == "YBBB";
  return warning("AIRMET", fir, time,
                 tropical ? Hazard{"MOD TURB", "SFC/8000FT"} : Hazard{"MOD ICE", "6000FT/FL140"},
                 2);
}

}  // namespace sim
