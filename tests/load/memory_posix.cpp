#include "tests/load/memory.h"

#include <malloc.h>
#include <unistd.h>

#include <fstream>

Memory Memory::now() {
#ifdef KTP_SANITIZED
  return {};
#else
  std::size_t pages = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return {::mallinfo2().uordblks, resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE))};
#endif
}
