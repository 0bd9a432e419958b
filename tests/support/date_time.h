#pragma once

#include <ktpnaips/core/date_time.h>

#include <chrono>

namespace ktpnaips::test {

constexpr DateTime at(int year, unsigned month, unsigned day, int hour = 0, int minute = 0,
                      int second = 0) {
  return std::chrono::local_days{std::chrono::year{year} / std::chrono::month{month} /
                                 std::chrono::day{day}} +
         std::chrono::hours{hour} + std::chrono::minutes{minute} + std::chrono::seconds{second};
}

}  // namespace ktpnaips::test
