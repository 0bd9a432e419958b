#pragma once

#include <objbase.h>

#include <string>

/// The component activated through its manifest, from a folder of its own in which it has never
/// been registered.
class SideBySide {
 public:
  SideBySide();
  ~SideBySide();
  SideBySide(const SideBySide&) = delete;
  SideBySide& operator=(const SideBySide&) = delete;

  /// True while the copy in this folder is loaded.
  bool isLoaded() const;

 private:
  std::wstring folder_;
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
};
