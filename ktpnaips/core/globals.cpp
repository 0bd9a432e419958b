#include <ktpnaips/core/globals.h>
#include <ktpnaips/platform/thread_state.h>

namespace ktpnaips::Globals {

Settings& settings() {
  return platform::threadState<Settings>();
}

}  // namespace ktpnaips::Globals
