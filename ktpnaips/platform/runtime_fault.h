#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ktpnaips {

/// Fault numbers of the automation runtime that the library raises.
namespace fault {
inline constexpr std::int32_t invalidCall = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t outOfMemory = 7;
inline constexpr std::int32_t subscriptOutOfRange = 9;
inline constexpr std::int32_t typeMismatch = 13;
inline constexpr std::int32_t internalError = 51;
inline constexpr std::int32_t badFileName = 52;
inline constexpr std::int32_t diskFull = 61;
inline constexpr std::int32_t permissionDenied = 70;
inline constexpr std::int32_t pathFileAccess = 75;
inline constexpr std::int32_t pathNotFound = 76;
inline constexpr std::int32_t objectNotSet = 91;
inline constexpr std::int32_t invalidUseOfNull = 94;
inline constexpr std::int32_t duplicateKey = 457;
inline constexpr std::int32_t invalidBase64 = -2147221504;
}  // namespace fault

/// What should not happen inside the library: a number and a description. Procedures with a
/// handler trap it and report one text; from all others it reaches the host.
class RuntimeFault : public std::runtime_error {
 public:
  /// A fault with the automation runtime's description of `number`, one of `fault`.
  explicit RuntimeFault(std::int32_t number);
  /// A fault with a description of its own.
  RuntimeFault(std::int32_t number, std::wstring_view description);

  /// One of `fault`, or the platform's own (negative) number.
  [[nodiscard]] std::int32_t number() const noexcept { return number_; }
  /// What went wrong, for a person.
  [[nodiscard]] std::wstring description() const;

 private:
  std::int32_t number_;
};

}  // namespace ktpnaips
