#pragma once

#include "cli/session.h"

#include <CLI/App.hpp>

#include <functional>
#include <vector>

namespace cli {

/// Runs a command whose options have been read.
using Run = std::function<void(Session&)>;

/// A command: the words that call it, and how it is set up.
struct Command {
  const char* group;  ///< the first word, or empty for a command of one word
  const char* name;
  const char* help;
  const char* example;  ///< a whole call, shown in its help
  /// Adds its arguments and options and returns what runs it.
  Run (*setUp)(CLI::App& app);
};

/// Makes a command known; a global object of the command's source file.
class Registered {
 public:
  explicit Registered(const Command& command);
};

/// All commands, by group and name.
std::vector<Command> allCommands();

}  // namespace cli
