#pragma once

#include <ktpnaips/core/transport.h>

#include <cstdint>

namespace ktpnaips::test {

/// A shorter wait for answers until the end of the scope.
class ShorterReceiveLimit {
 public:
  explicit ShorterReceiveLimit(std::uint32_t milliseconds) {
    winInet::timeLimits().receive = milliseconds;
  }
  ~ShorterReceiveLimit() { winInet::timeLimits().receive = winInet::TimeLimits().receive; }
  ShorterReceiveLimit(const ShorterReceiveLimit&) = delete;
  ShorterReceiveLimit& operator=(const ShorterReceiveLimit&) = delete;
};

}  // namespace ktpnaips::test
