#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ktpnaips {

/// The configuration: which NAIPS installation, which account, three switches. It has no state of
/// its own: every object shows and changes the settings of the calling thread.
class NAIPSConfig {
 public:
  /// 0 a developer's host (default), 1 production, 2 test. Nothing is refused; with any other
  /// number requests fail.
  std::int32_t Mode() const;
  void Mode(std::int32_t value);

  /// The account of requests that have none of their own; upper-cased and trimmed of spaces when
  /// set. Default "".
  std::wstring UserName() const;
  void UserName(std::wstring_view value);

  /// The password to `UserName`, stored unchanged. Default "".
  std::wstring Password() const;
  void Password(std::wstring_view value);

  /// Flight notifications in the newer flight-plan form. Default false.
  bool NewFPLFormat() const;
  void NewFPLFormat(bool value);

  /// In mode 1, go through the relaying proxy host. Default false.
  bool UseProxy() const;
  void UseProxy(bool value);

  /// Survival equipment of flight notifications in the domestic form. Default false.
  bool DisableICAO() const;
  void DisableICAO(bool value);
};

}  // namespace ktpnaips
