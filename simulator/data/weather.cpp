#include "simulator/data/weather.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "simulator/data/noise.h"
#include "simulator/data/weather_groups.h"

namespace sim {

namespace {

using std::chrono::floor;
using std::chrono::hours;
using std::chrono::minutes;

bool aerodrome(const Location& location) {
  return location.kind == 'A';
}

TimePoint sixHourly(TimePoint time) {
  const TimePoint day = floor<std::chrono::days>(time);
  return day + hours{6 * ((time - day) / hours{6})};
}

// "2006/2112"; midnight at the end is hour 24 of the day before.
std::string validity(TimePoint from, TimePoint till) {
  const std::string end = dayHour(till);
  return dayHour(from) + '/' +
         (end.ends_with("00") ? dayHour(till - hours{1}).substr(0, 2) + "24" : end);
}

std::string tafTemperatures(const Location& location, TimePoint from) {
  std::string temperatures = "T";
  std::string pressures = " Q";
  for (int step = 0; step < 4; ++step) {
    const Surface s = surfaceAt(location, from + hours{3 * step});
    temperatures += ' ' + temperatureGroup(s.temperatureC);
    pressures += ' ' + std::to_string(s.qnh);
  }
  return temperatures + pressures;
}

Surface worse(Surface s) {
  s.showers = std::max(1, s.showers);
  s.visibilityM = s.showers == 2 ? 2000 : 4000;
  s.lowOktas = 6;
  s.lowBaseFt = std::max(600, s.lowBaseFt / 200 * 100);
  s.highOktas = 0;
  return s;
}

std::string observation(const Location& location, const Surface& s, TimePoint time) {
  return std::string(location.code) + ' ' + dayHourMinute(time) + "Z " + windGroup(s) + ' ' +
         weatherGroups(s) + ' ' + temperatureGroup(s.temperatureC) + '/' +
         temperatureGroup(s.dewPointC) + " Q" + std::to_string(s.qnh);
}

std::string rainfall(const Surface& s) {
  return s.showers == 0   ? " RMK RF00.0/000.0"
         : s.showers == 1 ? " RMK RF00.2/001.4"
                          : " RMK RF03.6/008.2";
}

TimePoint halfHour(TimePoint time) {
  return TimePoint(minutes{30} * (time.time_since_epoch() / minutes{30}));
}

struct Runways {
  std::string_view code;
  std::array<std::string_view, 2> names;  // one end each; the opposite differs by 180 degrees
};

constexpr Runways runways[] = {
    {"YBAF", {"10L AND 10R", "28L AND 28R"}},
    {"YBBN", {"01L AND 01R", "19L AND 19R"}},
    {"YBCS", {"15", "33"}},
    {"YMHB", {"12", "30"}},
    {"YMMB", {"17L AND 17R", "35L AND 35R"}},
    {"YMML", {"16", "34"}},
    {"YPAD", {"05", "23"}},
    {"YPDN", {"11", "29"}},
    {"YPPF", {"03L AND 03R", "21L AND 21R"}},
    {"YPPH", {"03", "21"}},
    {"YPJT", {"06L AND 06R", "24L AND 24R"}},
    {"YSBK", {"11L AND 11C", "29R AND 29C"}},
    {"YSCB", {"17", "35"}},
    {"YSSY", {"16L AND 16R", "34L AND 34R"}},
};

// Degrees between the wind and the direction of a runway.
int angle(int direction, int runway) {
  const int difference = std::abs(direction - runway * 10) % 360;
  return std::min(difference, 360 - difference);
}

std::string runwayInUse(const Location& location, const Surface& s) {
  const auto known = std::ranges::find(runways, location.code, &Runways::code);
  if (known == std::end(runways)) {
    const int first = pick(seedOf(location.code), 7, 1, 18);
    const int runway = angle(s.direction, first) <= 90 ? first : first + 18;
    return twoDigits(runway);
  }
  const int first = (known->names[0][0] - '0') * 10 + (known->names[0][1] - '0');
  return std::string(known->names[angle(s.direction, first) <= 90 ? 0 : 1]);
}

std::string atisWind(const Surface& s) {
  if (s.speedKt == 0) {
    return "CALM";
  }
  const std::string group = windGroup(s);
  return group.substr(0, 3) + '/' + std::to_string(s.speedKt) +
         (s.gustKt > 0 ? " MAX " + std::to_string(s.gustKt) : "");
}

}  // namespace

std::string taf(const Location& location, TimePoint from, TimePoint till) {
  if (!aerodrome(location)) {
    return {};
  }
  const TimePoint start = sixHourly(from);
  const TimePoint end = start + (till > start + hours{24} ? hours{30} : hours{24});
  const std::uint64_t seed =
      seedOf(location.code) + static_cast<std::uint64_t>(start.time_since_epoch().count());
  const TimePoint issued = start - minutes{pick(seed, 0, 45, 75)};

  const Surface first = surfaceAt(location, start);
  std::string text = "TAF " + std::string(location.code) + ' ' + dayHourMinute(issued) + "Z " +
                     validity(start, end) + '\n' + windGroup(first) + ' ' + weatherGroups(first) +
                     '\n';
  for (const int change : {pick(seed, 1, 5, 9), pick(seed, 2, 13, 19)}) {
    const TimePoint at = start + hours{change};
    const Surface later = surfaceAt(location, at);
    text += "FM" + dayHourMinute(at) + ' ' + windGroup(later) + ' ' + weatherGroups(later) + '\n';
  }
  const TimePoint showery = start + hours{pick(seed, 3, 2, 16)};
  const Surface passing = surfaceAt(location, showery);
  if (passing.lowOktas > 3) {
    const Surface s = worse(passing);
    const bool likely = passing.showers > 0;
    text += (likely ? "TEMPO " : "PROB30 INTER ") + validity(showery, showery + hours{4}) + ' ' +
            weatherGroups(s) + '\n';
  }
  return text + "RMK\n" + tafTemperatures(location, start) + '\n';
}

std::string metar(const Location& location, TimePoint time) {
  if (!aerodrome(location)) {
    return {};
  }
  const Surface s = surfaceAt(location, time);
  return "METAR " + observation(location, s, halfHour(time)) + rainfall(s) + '\n';
}

std::string speci(const Location& location, TimePoint time) {
  if (!aerodrome(location)) {
    return {};
  }
  const Surface s = worse(surfaceAt(location, time));
  const TimePoint at = halfHour(time) + minutes{pick(seedOf(location.code), 9, 3, 27)};
  return "SPECI " + observation(location, s, at) + rainfall(s) + '\n';
}

std::string ttf(const Location& location, TimePoint time) {
  if (!aerodrome(location)) {
    return {};
  }
  const Surface s = surfaceAt(location, time);
  const TimePoint at = halfHour(time);
  std::string trend = "NOSIG";
  if (s.lowOktas > 4) {
    trend = "FM" + dayHourMinute(at + hours{1}).substr(2) + ' ' +
            windGroup(surfaceAt(location, at + hours{1})) + ' ' + weatherGroups(worse(s));
  }
  return "TTF METAR " + observation(location, s, at) + rainfall(s) + '\n' + trend + '\n';
}

std::string atis(const Location& location, TimePoint time) {
  if (!aerodrome(location)) {
    return {};
  }
  const Surface s = surfaceAt(location, time);
  const TimePoint at = halfHour(time);
  const auto turn = static_cast<int>((at.time_since_epoch() / minutes{30}) % 26);
  const std::string runway = runwayInUse(location, s);
  const std::string groups = weatherGroups(s);
  const std::string sky = groups == "CAVOK"       ? "CAVOK\n"
                          : s.visibilityM >= 9999 ? "VIS: GT 10KM\nCLD: " + groups.substr(5) + '\n'
                                                  : "VIS: " + std::to_string(s.visibilityM) +
                                                        "M\nWX: " + groups.substr(5) + '\n';
  return "ATIS " + std::string(location.code) + ' ' + static_cast<char>('A' + turn) + ' ' +
         dayHourMinute(at) + "\nAPCH: EXP " + (s.lowOktas > 4 ? "INSTR" : "VISUAL") +
         " APCH\nRWY: " + runway +
         "\nOPR INFO: " + (s.speedKt > 20 ? "CTN ADZ, MECHANICAL TURB BLW 2000FT" : "NIL") +
         "\nWIND: " + atisWind(s) + '\n' + sky + "TMP: " + std::to_string(s.temperatureC) +
         "\nQNH: " + std::to_string(s.qnh) + '\n';
}

}  // namespace sim
