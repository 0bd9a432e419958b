#include <ktpnaips/platform/processor.h>

#include <windows.h>

namespace ktpnaips::processor {

bool hasSse41() {
  return IsProcessorFeaturePresent(PF_SSE4_1_INSTRUCTIONS_AVAILABLE) != FALSE;
}

}  // namespace ktpnaips::processor
