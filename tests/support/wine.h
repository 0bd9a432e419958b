#pragma once

#ifdef _WIN32
#include <windows.h>

#include <cstdlib>
#endif

namespace ktpnaips::test {

/// The major version of the Wine that runs the program, 0 without one.
inline int wineVersion() {
#ifdef _WIN32
  using Version = const char*(CDECL*)();
  const HMODULE system = GetModuleHandleA("ntdll.dll");
  const FARPROC version = system != nullptr ? GetProcAddress(system, "wine_get_version") : nullptr;
  return version != nullptr
             ? std::atoi(reinterpret_cast<Version>(reinterpret_cast<void (*)()>(version))())
             : 0;
#else
  return 0;
#endif
}

}  // namespace ktpnaips::test
