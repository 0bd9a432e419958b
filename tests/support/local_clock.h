#pragma once

#include <ktpnaips/core/date_time.h>

#include <ctime>

#include "tests/support/date_time.h"

namespace ktpnaips::test {

/// The local wall-clock time, to the second.
inline DateTime localNow() {
  const std::time_t now = std::time(nullptr);
  const std::tm* const parts = std::localtime(&now);
  return at(parts->tm_year + 1900, static_cast<unsigned>(parts->tm_mon + 1),
            static_cast<unsigned>(parts->tm_mday), parts->tm_hour, parts->tm_min, parts->tm_sec);
}

}  // namespace ktpnaips::test
