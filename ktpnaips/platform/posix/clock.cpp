#include <ktpnaips/platform/clock.h>

#include <ctime>

namespace ktpnaips::clock {

std::chrono::local_seconds now() {
  using namespace std::chrono;
  const std::time_t utc = std::time(nullptr);
  std::tm local{};
  localtime_r(&utc, &local);
  const auto date = year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday;
  return local_days{date} + hours{local.tm_hour} + minutes{local.tm_min} + seconds{local.tm_sec};
}

}  // namespace ktpnaips::clock
