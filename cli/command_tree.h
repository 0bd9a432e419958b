#pragma once

#include <CLI/App.hpp>

#include <string>
#include <vector>

namespace cli {

/// What a value stands for, as far as a shell can complete it.
enum class Value { none, text, file, folder, choice };

/// An argument or an option of a command.
struct Parameter {
  std::vector<std::string> names;  ///< an option's, such as "-q" and "--quiet"; an argument's one
  std::string help;
  std::string group;  ///< the heading under which the help lists it
  Value value = Value::none;
  std::string valueName;             ///< as in "FILE"; of a choice, what can be chosen
  std::vector<std::string> choices;  ///< of `Value::choice`
  bool isRequired = false;
  bool isRepeatable = false;
};

/// A command, or the group of commands with the same first word.
struct CommandNode {
  std::string words;  ///< as in "chart get"; empty for naips itself
  std::string help;
  std::vector<Parameter> options;  ///< its own: those of naips itself may stand everywhere
  std::vector<Parameter> arguments;
  std::vector<CommandNode> commands;

  /// Its last word.
  [[nodiscard]] std::string name() const { return words.substr(words.rfind(' ') + 1); }
};

/// The command line as the parser knows it.
CommandNode commandTree(const CLI::App& app);

/// Every node, each before those below it.
std::vector<const CommandNode*> allNodes(const CommandNode& root);

}  // namespace cli
