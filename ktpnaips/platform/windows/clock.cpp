#include <ktpnaips/platform/clock.h>

#include <windows.h>

namespace ktpnaips::clock {

std::chrono::local_seconds now() {
  using namespace std::chrono;
  SYSTEMTIME local{};
  GetLocalTime(&local);
  const auto date = year{local.wYear} / month{local.wMonth} / day{local.wDay};
  return local_days{date} + hours{local.wHour} + minutes{local.wMinute} + seconds{local.wSecond};
}

}  // namespace ktpnaips::clock
