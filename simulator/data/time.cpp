#include "simulator/data/time.h"

#include <cstdio>

namespace sim {

namespace {

struct Fields {
  int year;
  unsigned month, day;
  int hour, minute, second;
};

Fields split(TimePoint time) {
  const auto days = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date{days};
  const std::chrono::hh_mm_ss clock{time - days};
  return {static_cast<int>(date.year()),
          static_cast<unsigned>(date.month()),
          static_cast<unsigned>(date.day()),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count())};
}

template <typename... Values>
std::string print(const char* pattern, Values... values) {
  char text[64];
  const int length = std::snprintf(text, sizeof text, pattern, values...);
  return std::string(text, static_cast<std::size_t>(length));
}

}  // namespace

std::string dayHourMinute(TimePoint time) {
  const Fields f = split(time);
  return print("%02u%02d%02d", f.day, f.hour, f.minute);
}

std::string dayHour(TimePoint time) {
  const Fields f = split(time);
  return print("%02u%02d", f.day, f.hour);
}

std::string isoDateTime(TimePoint time) {
  const Fields f = split(time);
  return print("%04d-%02u-%02uT%02d:%02d:%02dZ", f.year, f.month, f.day, f.hour, f.minute,
               f.second);
}

std::string isoDate(TimePoint time) {
  return isoDateTime(time).substr(0, 10);
}

}  // namespace sim
