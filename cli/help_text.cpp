#include "cli/help_text.h"

#include "cli/command_tree.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <cstddef>
#include <string_view>

namespace cli {
namespace {

std::string helpEntry(std::string_view name, std::string_view help) {
  constexpr std::size_t width = 30;
  std::string text = fmt::format("  {}", name);
  if (text.size() >= width) text += '\n' + std::string(width, ' ');
  return fmt::format("{:<{}}{}\n", text, width, help);
}

/// What stands behind the name of an option or an argument.
std::string helpValue(const Parameter& parameter, std::string_view valueName) {
  std::string shown;
  if (!parameter.choices.empty()) {
    shown = fmt::format(" {{{}}}", fmt::join(parameter.choices, ","));
  } else if (!valueName.empty()) {
    shown = fmt::format(" {}", valueName);
  }
  return shown + (parameter.isRepeatable ? " ..." : "");
}

std::string usagePart(const CommandNode& node, const std::string& name) {
  std::string text = fmt::format("Usage: {} [OPTIONS]", name);
  for (const Parameter& argument : node.arguments) {
    const std::string word = argument.names.front() + (argument.isRepeatable ? "..." : "");
    text += argument.isRequired ? ' ' + word : fmt::format(" [{}]", word);
  }
  return text + (node.commands.empty() ? "\n" : " SUBCOMMAND\n");
}

std::string argumentsPart(const CommandNode& node) {
  std::string text;
  for (const Parameter& argument : node.arguments) {
    if (text.empty()) text = "\nPositionals:\n";
    text += helpEntry(argument.names.front() + helpValue(argument, {}), argument.help);
  }
  return text;
}

std::string optionsPart(const CommandNode& node) {
  std::string text;
  std::string group;
  for (const Parameter& option : node.options) {
    if (option.group != group) text += fmt::format("\n{}:\n", option.group);
    group = option.group;
    text += helpEntry(
        fmt::format("{}{}", fmt::join(option.names, ","), helpValue(option, option.valueName)),
        option.help);
  }
  return text;
}

std::string commandsPart(const CommandNode& node) {
  if (node.commands.empty()) return {};
  std::string text = "\nSubcommands:\n";
  for (const CommandNode& each : node.commands) text += helpEntry(each.words, each.help);
  return text;
}

}  // namespace

std::string HelpText::make_help(const CLI::App* app, std::string name, CLI::AppFormatMode) const {
  const CommandNode node = commandTree(*app);
  const std::string footer = app->get_footer();
  return node.help + '\n' + usagePart(node, name) + argumentsPart(node) + optionsPart(node) +
         commandsPart(node) + (footer.empty() ? "" : '\n' + footer + '\n');
}

}  // namespace cli
