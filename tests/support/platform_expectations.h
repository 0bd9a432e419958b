#pragma once

#include <cstddef>

#ifdef _WIN32
#include <windows.h>
#endif

namespace ktpnaips::test {

/// Where platforms rightly differ, and where Wine differs from the Windows that it stands for.
struct PlatformExpectations {
  std::size_t longestText;  ///< in bytes; a document with a longer one is refused
  std::size_t mostLevels;   ///< of elements; a deeper document is refused
  bool refusesUndeclaredPrefixes;
  bool tellsWhereParsingStopped;
  bool hasTextForInvalidResponse;  ///< for error code 12152
};

inline constexpr std::size_t aGigabyte = std::size_t{1} << 30U;
inline constexpr PlatformExpectations onPosix{aGigabyte, 1'000'000, true, true, true};
inline constexpr PlatformExpectations onWindows{aGigabyte, 255, true, true, true};
inline constexpr PlatformExpectations onWine{10'000'000, 1'999, false, false, false};

inline const PlatformExpectations& expectations() {
#ifdef _WIN32
  const HMODULE system = GetModuleHandleA("ntdll.dll");
  const bool isWine = system != nullptr && GetProcAddress(system, "wine_get_version") != nullptr;
  return isWine ? onWine : onWindows;
#else
  return onPosix;
#endif
}

}  // namespace ktpnaips::test
