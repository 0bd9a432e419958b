#include <ktpnaips/platform/processor.h>

namespace ktpnaips::processor {

bool hasSse41() {
#if defined(__x86_64__) || defined(__i386__)
  return __builtin_cpu_supports("sse4.1") != 0;
#else
  return false;
#endif
}

}  // namespace ktpnaips::processor
