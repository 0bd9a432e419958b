#include <ktpnaips/platform/process.h>

#include <pthread.h>
#include <unistd.h>

#include <new>

namespace ktpnaips::platform {

std::int64_t processNumber() noexcept {
  return ::getpid();
}

void aroundForks(void (*before)(), void (*after)()) {
  if (pthread_atfork(before, after, after) != 0) throw std::bad_alloc();
}

}  // namespace ktpnaips::platform
