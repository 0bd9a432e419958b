#pragma once

#include <windows.h>

namespace ktpnaips::component {

/// Holds a lock that needs no clean-up when the module is unloaded.
class Locked {
 public:
  explicit Locked(SRWLOCK& lock) noexcept : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;
  ~Locked() { ReleaseSRWLockExclusive(&lock_); }

 private:
  SRWLOCK& lock_;
};

}  // namespace ktpnaips::component
