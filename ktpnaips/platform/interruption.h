#pragma once

#include <filesystem>

/// What a program does when it is interrupted: by SIGINT, SIGTERM or SIGHUP; on Windows by Ctrl+C,
/// Ctrl+Break or the end of the session. An interruption that the program ignores or handles itself
/// stays so.
namespace ktpnaips::interruption {

/// From now on an interruption first writes this line to standard error, and then ends the program
/// as it would have anyway; nullptr for no line. The text must last. From any thread.
void announce(const char* line) noexcept;

/// A file that an interruption removes, for as long as this lives. There is one at a time.
class Removal {
 public:
  explicit Removal(const std::filesystem::path& file);  ///< nothing is removed before
  ~Removal();
  Removal(const Removal&) = delete;
  Removal& operator=(const Removal&) = delete;

 private:
  std::filesystem::path::string_type file_;
};

/// While it lives, an interruption waits; it happens at the end.
class Postponement {
 public:
  Postponement() noexcept;
  ~Postponement();
  Postponement(const Postponement&) = delete;
  Postponement& operator=(const Postponement&) = delete;
};

/// True when an interruption waits for the end of a postponement.
bool isWaiting() noexcept;

}  // namespace ktpnaips::interruption
