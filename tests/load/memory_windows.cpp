#include "tests/load/memory.h"

#include <windows.h>

#include <psapi.h>

Memory Memory::now() {
  PROCESS_MEMORY_COUNTERS counters{};
  if (GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters) == 0) return {};
  return {0, counters.WorkingSetSize};
}
