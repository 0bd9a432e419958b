#pragma once

/// What a program says when it is interrupted.
namespace ktpnaips::interruption {

/// From now on an interruption (SIGINT or SIGTERM; on Windows Ctrl+C, Ctrl+Break or the end of the
/// session) first writes this line to standard error, and then ends the program as it would have
/// anyway; nullptr for no line. An interruption that the program ignores or handles itself stays
/// so. The text must last. From any thread.
void announce(const char* line) noexcept;

}  // namespace ktpnaips::interruption
