#include <ktpnaips/platform/cancellation.h>

#include <pthread.h>

namespace ktpnaips::platform {

WithoutCancellation::WithoutCancellation() noexcept {
  pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before_);
}

WithoutCancellation::~WithoutCancellation() {
  pthread_setcancelstate(before_, nullptr);
}

}  // namespace ktpnaips::platform
