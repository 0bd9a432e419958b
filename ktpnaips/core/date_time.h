#pragma once

#include <chrono>

namespace ktpnaips {

/// A calendar date and time of day to the second, with no time zone: what the host gives is sent,
/// what the service sends is returned. The service takes and gives UTC.
using DateTime = std::chrono::local_seconds;

/// The date-time of a value that was never set: 1899-12-30 00:00:00.
inline constexpr DateTime zeroDateTime =
    std::chrono::local_days{std::chrono::year{1899} / std::chrono::December / std::chrono::day{30}};

/// 1970-01-01 00:00:00: a period or time not given, and what unreadable date texts become.
inline constexpr DateTime noDateTime{};

}  // namespace ktpnaips
