#include "cli/completion.h"
#include "cli/quoting.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <functional>
#include <string_view>
#include <vector>

namespace cli::bash {
namespace {

constexpr std::string_view head =
    R"(# Completion of naips for bash, written by "naips completion bash".

_naips_words() {
  mapfile -t COMPREPLY < <(compgen -W "$1" -- "$current")
}

_naips_paths() {
  compopt -o filenames
  mapfile -t COMPREPLY < <(compgen "$1" -- "$current")
}

_naips() {
  local current=${COMP_WORDS[COMP_CWORD]} command='' option='' index word
  [[ $current != '=' ]] || current=
  for ((index = 1; index < COMP_CWORD; index++)); do
    word=${COMP_WORDS[index]}
    case $word in
      '=') continue ;;
      ':') ((index++)); continue ;;
    esac
    if [[ -n $option ]]; then
      option=
      continue
    fi
)";

constexpr std::string_view foot = R"(}

complete -F _naips naips
)";

/// A case of bash over what the nodes give, each with what is to be done for it.
class Cases {
 public:
  Cases(std::string_view indent, std::string_view subject)
      : indent_(indent), text_(fmt::format("{}case {} in\n", indent, subject)) {}

  void add(const std::vector<std::string>& patterns, std::string_view done) {
    if (patterns.empty()) return;
    text_ += fmt::format("{}  {}) {} ;;\n", indent_, fmt::join(patterns, " | "), done);
  }

  [[nodiscard]] std::string text() const { return text_ + indent_ + "esac\n"; }

 private:
  std::string indent_;
  std::string text_;
};

/// An option behind its command; one of naips itself may stand behind any.
std::string pattern(const CommandNode& node, const std::string& name) {
  return node.words.empty() ? "*" + shellQuoted(" " + name) : shellQuoted(node.words + " " + name);
}

using Fits = std::function<bool(const Parameter&)>;

std::vector<std::string> optionPatterns(const CommandNode& root, const Fits& fits) {
  std::vector<std::string> patterns;
  for (const CommandNode* node : allNodes(root)) {
    for (const Parameter& option : node->options) {
      if (!fits(option)) continue;
      for (const auto& name : option.names) patterns.push_back(pattern(*node, name));
    }
  }
  return patterns;
}

Fits stands(Value value) {
  return [=](const Parameter& parameter) { return parameter.value == value; };
}

std::string wordList(const std::vector<std::string>& words) {
  return fmt::format("_naips_words {}", shellQuoted(fmt::format("{}", fmt::join(words, " "))));
}

/// What stands behind an option with a value.
std::string valueCases(const CommandNode& root) {
  Cases cases("    ", "\"$command $option\"");
  cases.add(optionPatterns(root, stands(Value::file)), "_naips_paths -f");
  cases.add(optionPatterns(root, stands(Value::folder)), "_naips_paths -d");
  for (const CommandNode* node : allNodes(root)) {
    for (const Parameter& option : node->options) {
      if (option.value != Value::choice) continue;
      cases.add({pattern(*node, option.names.back())}, wordList(option.choices));
    }
  }
  return cases.text();
}

std::vector<std::string> optionNames(const CommandNode& node) {
  std::vector<std::string> names;
  for (const Parameter& option : node.options) {
    names.insert(names.end(), option.names.begin(), option.names.end());
  }
  return names;
}

std::string optionCases(const CommandNode& root) {
  Cases cases("    ", "$command");
  for (const CommandNode* node : allNodes(root)) {
    const auto names = optionNames(*node);
    if (node == &root || names.empty()) continue;
    cases.add({shellQuoted(node->words)}, fmt::format("option='{} '", fmt::join(names, " ")));
  }
  return cases.text();
}

/// What stands where no option is: the word of a command, or a file.
std::string wordCases(const CommandNode& root) {
  Cases cases("  ", "$command");
  for (const CommandNode* node : allNodes(root)) {
    std::vector<std::string> names;
    for (const CommandNode& each : node->commands) names.push_back(each.name());
    if (!names.empty()) cases.add({shellQuoted(node->words)}, wordList(names));
    for (const Parameter& argument : node->arguments) {
      if (argument.value == Value::file) cases.add({shellQuoted(node->words)}, "_naips_paths -f");
      if (argument.value == Value::choice) {
        cases.add({shellQuoted(node->words)}, wordList(argument.choices));
      }
    }
  }
  return cases.text();
}

std::vector<std::string> commandPatterns(const CommandNode& root) {
  std::vector<std::string> patterns;
  for (const CommandNode* node : allNodes(root)) {
    const auto before = node->words.substr(0, node->words.size() - node->name().size());
    if (node != &root)
      patterns.push_back(shellQuoted((before.empty() ? " " : before) + node->name()));
  }
  return patterns;
}

}  // namespace

std::string completion(const CommandNode& root) {
  const auto takesValue = [](const Parameter& option) { return option.value != Value::none; };
  std::string text(head);
  Cases walk("    ", "\"$command $word\"");
  walk.add(optionPatterns(root, takesValue), "option=$word");
  walk.add(commandPatterns(root), "command=${command:+$command }$word");
  text += walk.text() + "  done\n\n  COMPREPLY=()\n";
  text += "  if [[ -n $option ]]; then\n" + valueCases(root) + "    return\n  fi\n";
  text += "  if [[ $current == -* ]]; then\n" + optionCases(root);
  text += fmt::format("    _naips_words \"$option{}\"\n    return\n  fi\n",
                      fmt::join(optionNames(root), " "));
  return text + wordCases(root) + std::string(foot);
}

}  // namespace cli::bash
