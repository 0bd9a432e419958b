#pragma once

#include <cstddef>

/// What the process holds, in bytes; 0 where that says nothing (under a sanitizer) or is not known.
struct Memory {
  std::size_t inUse = 0;     ///< of the heap
  std::size_t resident = 0;  ///< of all

  static Memory now();
};

/// In use: less than a chart for every eighth thread. Resident: what an allocator holds back for
/// 64 threads, far less than what a leak of any kind comes to in many submits.
inline constexpr Memory mostGrowth{std::size_t{2} << 20U, std::size_t{48} << 20U};
