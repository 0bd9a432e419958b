#pragma once

#include <cstdint>

namespace ktpnaips {

/// A set of option bits, numbered from 0.
class FlagWord {
 public:
  /// With these bits set.
  explicit FlagWord(std::int32_t initial = 0) noexcept : bits_(initial) {}

  /// True when the bit is set. A negative number reads false; 31 and above throw fault 6.
  [[nodiscard]] bool flag(std::int32_t bit) const;
  /// Sets or clears the bit. A negative number changes nothing; 31 and above throw fault 6.
  void setFlag(std::int32_t bit, bool on);

 private:
  std::int32_t bits_;
};

}  // namespace ktpnaips
