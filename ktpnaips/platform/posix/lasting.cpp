#include <ktpnaips/platform/lasting.h>

namespace ktpnaips::platform {

// Whatever holds the library stays loaded (-z nodelete).
bool isUnloading() noexcept {
  return false;
}

}  // namespace ktpnaips::platform
