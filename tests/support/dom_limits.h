#pragma once

#include <cstddef>

#ifdef _WIN32
#include <windows.h>
#endif

namespace ktpnaips::test {

/// What the platform's DOM takes, beyond which a text is refused with a reason, and what it tells.
struct DomLimits {
  std::size_t textBytes;
  std::size_t levels;
  bool refusesUndeclaredPrefixes = true;
  bool tellsWhereParsingStopped = true;
};

inline DomLimits domLimits() {
#ifdef _WIN32
  const HMODULE system = GetModuleHandleA("ntdll.dll");
  const bool isWine = system != nullptr && GetProcAddress(system, "wine_get_version") != nullptr;
  return isWine ? DomLimits{10'000'000, 1'999, false, false}
                : DomLimits{std::size_t{1} << 30U, 255};
#else
  return {std::size_t{1} << 30U, 1'000'000};
#endif
}

}  // namespace ktpnaips::test
