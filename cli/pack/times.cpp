#include "cli/pack/times.h"

#include "cli/arguments.h"
#include "cli/json.h"
#include "cli/usage_error.h"

#include <fmt/format.h>

#include <array>
#include <chrono>
#include <cmath>

namespace cli::pack {

using ktpnaips::DateTime;

namespace {

constexpr std::array days{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string shortDay(DateTime value) {
  const auto day = std::chrono::floor<std::chrono::days>(value);
  const std::chrono::year_month_day date{day};
  return fmt::format("{} {} {}", days.at(std::chrono::weekday{day}.c_encoding()),
                     static_cast<unsigned>(date.day()),
                     months.at(static_cast<unsigned>(date.month()) - 1));
}

}  // namespace

std::string timeText(DateTime value) {
  return dateTimeText(value).substr(11, 5) + "Z";
}

std::string dayText(DateTime value) {
  return shortDay(value) + " " + dateTimeText(value).substr(0, 4);
}

std::string dayTimeText(DateTime value) {
  return shortDay(value) + " " + timeText(value);
}

std::string weekdayTimeText(DateTime value) {
  return shortDay(value).substr(0, 3) + " " + timeText(value);
}

std::string dateText(DateTime value) {
  return dateTimeText(value).substr(0, 10);
}

std::string durationText(double minutes) {
  const long whole = std::lround(minutes);
  return whole < 60 ? fmt::format("{} min", whole)
                    : fmt::format("{} h {:02} min", whole / 60, whole % 60);
}

std::optional<DateTime> readTime(const std::string& text) {
  try {
    return parseDateTime(text);
  } catch (const UsageError&) {
    return std::nullopt;
  }
}

}  // namespace cli::pack
