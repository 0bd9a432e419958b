#include "cli/completion.h"
#include "cli/quoting.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <string_view>
#include <vector>

namespace cli::fish {
namespace {

std::string quoted(const std::string& text) {
  return '\'' + escaped(text, "\\'") + '\'';
}

/// Every option with a value: of naips itself as it is, of a command behind the command.
std::string valuedOptions(const CommandNode& root) {
  std::string list;
  for (const CommandNode* node : allNodes(root)) {
    for (const Parameter& option : node->options) {
      if (option.value == Value::none) continue;
      for (const auto& name : option.names) {
        list += ' ' + quoted(node->words.empty() ? name : node->words + ' ' + name);
      }
    }
  }
  return list;
}

std::string commandList(const CommandNode& root) {
  std::string list;
  for (const CommandNode* node : allNodes(root)) {
    if (node != &root) list += ' ' + quoted(node->words);
  }
  return list;
}

constexpr std::string_view head =
    R"(# Completion of naips for fish, written by "naips completion fish".

# True when the command before the cursor is the one given.
function __naips_in
    set -l valued{}
    set -l commands{}
    set -l words (commandline -opc)
    set -l command ''
    set -l skipped
    for word in $words[2..-1]
        set -l longer (string trim -- "$command $word")
        if set -q skipped[1]
            set -e skipped
        else if contains -- $word $valued; or contains -- $longer $valued
            set skipped yes
        else if contains -- $longer $commands
            set command $longer
        end
    end
    test "$command" = "$argv"
end

complete -c naips -f
)";

std::string valueOptions(const Parameter& parameter) {
  switch (parameter.value) {
    case Value::none:
      return {};
    case Value::text:
      return " -x";
    case Value::file:
      return " -r -F";
    case Value::folder:
      return " -x -a '(__fish_complete_directories)'";
    case Value::choice:
      return " -x -a " + quoted(fmt::format("{}", fmt::join(parameter.choices, " ")));
  }
  return {};
}

std::string optionLine(const std::string& condition, const Parameter& option) {
  std::string line = "complete -c naips" + condition;
  for (const auto& name : option.names) {
    line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  return line + valueOptions(option) + " -d " + quoted(option.help) + '\n';
}

std::string argumentLine(const std::string& condition, const Parameter& argument) {
  const std::string line = "complete -c naips" + condition;
  if (argument.value == Value::file) return line + " -F\n";
  if (argument.value == Value::choice) {
    return line + " -a " + quoted(fmt::format("{}", fmt::join(argument.choices, " "))) + '\n';
  }
  return {};
}

}  // namespace

std::string completion(const CommandNode& root) {
  std::string text = fmt::format(head, valuedOptions(root), commandList(root));
  for (const CommandNode* node : allNodes(root)) {
    const std::string condition = " -n " + quoted("__naips_in " + node->words);
    for (const CommandNode& each : node->commands) {
      text += fmt::format("complete -c naips{} -a {} -d {}\n", condition, each.name(),
                          quoted(each.help));
    }
    for (const Parameter& option : node->options) {
      text += optionLine(node == &root ? "" : condition, option);
    }
    for (const Parameter& argument : node->arguments) text += argumentLine(condition, argument);
  }
  return text;
}

}  // namespace cli::fish
