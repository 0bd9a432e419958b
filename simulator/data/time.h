#pragma once

#include <chrono>
#include <string>

namespace sim {

using TimePoint = std::chrono::sys_seconds;

std::string dayHourMinute(TimePoint time);  // "200630"
std::string dayHour(TimePoint time);        // "2006"
std::string isoDateTime(TimePoint time);    // "2026-11-20T06:30:00Z"
std::string isoDate(TimePoint time);        // "2026-11-20"

}  // namespace sim
