#pragma once

#include <cstddef>

/// What the process holds, in bytes; 0 where that says nothing (under a sanitizer) or is not known.
struct Memory {
  std::size_t inUse = 0;     ///< of the heap
  std::size_t resident = 0;  ///< of all

  static Memory now();
};

/// More than the slack of the allocator, less than one chart for each thread.
inline constexpr std::size_t mostGrowth = std::size_t{8} << 20U;
