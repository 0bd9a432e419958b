#include "cli/completion.h"
#include "cli/quoting.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <string_view>
#include <vector>

namespace cli::zsh {
namespace {

constexpr std::string_view head = R"(#compdef naips
# Completion of naips for zsh, written by "naips completion zsh".

# Says what argument comes next, unless an option is being typed.
_naips_hint() {
  [[ $PREFIX == -* ]] || _message $1
}

)";

constexpr std::string_view foot = R"(if [ "$funcstack[1]" = _naips ]; then
  _naips "$@"
else
  compdef _naips naips
fi
)";

/// What completes a value, as _arguments reads it: ":MESSAGE:ACTION".
std::string action(const Parameter& parameter) {
  const std::string name = escaped(parameter.valueName, "\\:");
  switch (parameter.value) {
    case Value::none:
      return {};
    case Value::text:
      return ":" + name + ": ";
    case Value::file:
      return ":" + name + ":_files";
    case Value::folder:
      return ":" + name + ":_files -/";
    case Value::choice:
      return fmt::format(":{}:({})", name, fmt::join(parameter.choices, " "));
  }
  return {};
}

std::string optionSpecs(const Parameter& option) {
  std::string specs;
  const std::string excluded =
      option.isRepeatable ? "*" : fmt::format("({})", fmt::join(option.names, " "));
  for (const auto& name : option.names) {
    const std::string help = escaped(option.help, "\\[]");
    specs += ' ' + shellQuoted(fmt::format("{}{}[{}]{}", excluded, name, help, action(option)));
  }
  return specs;
}

std::string argumentSpecs(const CommandNode& node) {
  std::string specs;
  int position = 0;
  for (const Parameter& argument : node.arguments) {
    ++position;
    const std::string where = argument.isRepeatable ? "*" : std::to_string(position);
    const std::string done = argument.value == Value::text
                                 ? fmt::format(":{0}:_naips_hint {0}", argument.valueName)
                                 : action(argument);
    specs += " " + shellQuoted(where + done);
  }
  return specs;
}

std::string functionName(const CommandNode& node) {
  return node.words.empty() ? "_naips" : "_naips_" + replaced(node.words, " ", "_");
}

std::string optionsOf(const CommandNode& node) {
  std::string specs;
  for (const Parameter& option : node.options) specs += optionSpecs(option);
  return specs;
}

/// The options of naips itself, which may stand everywhere; those of a node go before a like one.
std::string commonOptions(const CommandNode& root) {
  return "  local -a common=(" + optionsOf(root) + ")\n";
}

std::string commandFunction(const CommandNode& node) {
  return fmt::format("{}() {{\n  _arguments $common{}{}\n}}\n\n", functionName(node),
                     optionsOf(node), argumentSpecs(node));
}

std::string groupFunction(const CommandNode& node) {
  std::string names;
  std::string calls;
  for (const CommandNode& each : node.commands) {
    names += ' ' + shellQuoted(each.name() + ':' + each.help);
    calls += fmt::format("        {}) {} ;;\n", each.name(), functionName(each));
  }
  return fmt::format(R"({}() {{
{}  local curcontext=$curcontext state line
  local -a commands=({})
  _arguments -C $common '1: :->command' '*:: :->rest'
  case $state in
    command) _describe command commands ;;
    rest)
      case $line[1] in
{}      esac
      ;;
  esac
}}

)",
                     functionName(node), node.words.empty() ? commonOptions(node) : "", names,
                     calls);
}

}  // namespace

std::string completion(const CommandNode& root) {
  std::string text(head);
  for (const CommandNode* node : allNodes(root)) {
    text += node->commands.empty() ? commandFunction(*node) : groupFunction(*node);
  }
  return text + std::string(foot);
}

}  // namespace cli::zsh
