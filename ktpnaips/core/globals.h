#pragma once

#include <cstdint>
#include <string>

/// The settings that `NAIPSConfig` shows, one set a thread.
namespace ktpnaips::Globals {

struct Settings {
  std::int32_t mode = 0;
  std::wstring userName;
  std::wstring password;
  bool newFPLFormat = false;
  bool useProxy = false;
  bool disableICAO = false;
};

/// The calling thread's settings.
Settings& settings();

}  // namespace ktpnaips::Globals
