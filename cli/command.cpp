#include "cli/command.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace cli {
namespace {

std::vector<Command>& registered() {
  static std::vector<Command> commands;
  return commands;
}

}  // namespace

Registered::Registered(const Command& command) {
  registered().push_back(command);
}

std::vector<Command> allCommands() {
  auto commands = registered();
  std::ranges::sort(commands, {}, [](const Command& command) {
    return std::pair<std::string_view, std::string_view>(command.group, command.name);
  });
  return commands;
}

}  // namespace cli
