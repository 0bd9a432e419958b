#include "tests/load/memory.h"

#include <malloc.h>
#include <unistd.h>

#include <fstream>

Memory Memory::now() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  return {};
#else
  std::size_t pages = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return {::mallinfo2().uordblks, resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE))};
#endif
}
