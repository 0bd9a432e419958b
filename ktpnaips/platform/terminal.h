#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// The person at a terminal, for programs that have one.
namespace ktpnaips::terminal {

/// The program's arguments as UTF-8, its name left out.
std::vector<std::string> arguments(int argc, char** argv);

/// Keeps the places of standard streams that are closed from being taken by files and connections,
/// which would then be written to.
void keepStreamsApart();

/// True when standard input and standard error are a terminal, so that questions can be asked.
bool canAsk();
/// Standard output and standard error.
enum class Stream { output, error };

/// True when the stream is a terminal that shows colours by ANSI escape sequences.
bool showsColours(Stream stream);
/// The columns of the terminal on standard output; 0 when it is none.
std::size_t columns();

/// Asks on standard error and reads a line from the terminal; nothing when input ended.
std::optional<std::string> ask(const std::string& prompt);
/// As `ask`, without showing what is typed.
std::optional<std::string> askSecret(const std::string& prompt);

/// The value of an environment variable as UTF-8; nothing when it is not set or empty.
std::optional<std::string> environment(const char* name);

}  // namespace ktpnaips::terminal
