#include <ktpnaips/platform/process.h>

#include <windows.h>

namespace ktpnaips::platform {

std::int64_t processNumber() noexcept {
  return GetCurrentProcessId();
}

void aroundForks(void (*)(), void (*)()) {}  // there are none

}  // namespace ktpnaips::platform
