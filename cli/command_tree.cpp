#include "cli/command_tree.h"

#include <cstddef>
#include <sstream>
#include <utility>

namespace cli {
namespace {

/// What stands in the braces that the name of a choice ends with, as in "TEXT:{bash,zsh}".
std::vector<std::string> choicesIn(const std::string& valueName) {
  const auto open = valueName.find('{');
  if (open == std::string::npos || !valueName.ends_with('}')) return {};
  std::istringstream list(valueName.substr(open + 1, valueName.size() - open - 2));
  std::vector<std::string> choices;
  for (std::string each; std::getline(list, each, ',');) choices.push_back(each);
  return choices;
}

Value kindOf(const Parameter& parameter) {
  if (!parameter.choices.empty()) return Value::choice;
  if (parameter.valueName == "FILE") return Value::file;
  if (parameter.valueName == "DIR") return Value::folder;
  return Value::text;
}

void nameOption(Parameter& parameter, const CLI::Option& option) {
  for (const auto& name : option.get_snames()) parameter.names.push_back("-" + name);
  for (const auto& name : option.get_lnames()) parameter.names.push_back("--" + name);
  parameter.isRepeatable = option.get_items_expected_max() > 1;
  if (option.get_items_expected_max() == 0) return;
  parameter.valueName = option.get_type_name();
  parameter.choices = choicesIn(parameter.valueName);
  parameter.value = kindOf(parameter);
}

void nameArgument(Parameter& parameter, const CLI::Option& option) {
  parameter.names = {option.get_name(true)};
  parameter.isRepeatable = option.get_items_expected_max() > 1;
  parameter.choices = choicesIn(option.get_type_name());
  parameter.valueName = parameter.names.front();
  parameter.value = kindOf(parameter);
}

/// The heading that an option has by itself is CLI11's, which changes with its version.
std::string groupOf(const CLI::Option& option, const CLI::App& app) {
  const bool isByItself = option.get_group() == app.get_help_ptr()->get_group();
  return isByItself ? "Options" : option.get_group();
}

CommandNode node(const CLI::App& app, const std::string& words) {
  CommandNode node{words, app.get_description(), {}, {}, {}};
  for (const CLI::Option* option : app.get_options()) {
    if (!words.empty() && option == app.get_help_ptr()) continue;  // naips itself has it
    Parameter parameter;
    parameter.help = option->get_description();
    parameter.group = groupOf(*option, app);
    parameter.isRequired = option->get_required();
    if (option->get_positional()) {
      nameArgument(parameter, *option);
      node.arguments.push_back(std::move(parameter));
    } else {
      nameOption(parameter, *option);
      node.options.push_back(std::move(parameter));
    }
  }
  for (const CLI::App* each : app.get_subcommands([](const CLI::App*) { return true; })) {
    std::string path = words;
    if (!path.empty()) path += ' ';
    path += each->get_name();
    node.commands.push_back(cli::node(*each, path));
  }
  return node;
}

void collect(const CommandNode& node, std::vector<const CommandNode*>& all) {
  all.push_back(&node);
  for (const auto& each : node.commands) collect(each, all);
}

}  // namespace

CommandNode commandTree(const CLI::App& app) {
  return node(app, {});
}

std::vector<const CommandNode*> allNodes(const CommandNode& root) {
  std::vector<const CommandNode*> all;
  collect(root, all);
  return all;
}

}  // namespace cli
