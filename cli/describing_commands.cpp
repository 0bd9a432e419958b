#include "cli/describing_commands.h"

#include "cli/command_tree.h"
#include "cli/completion.h"
#include "cli/manual.h"

#include <fmt/format.h>
#include <CLI/Error.hpp>
#include <CLI/Validators.hpp>

#include <cstdio>
#include <map>
#include <memory>
#include <string>

namespace cli {
namespace {

using Writer = std::string (*)(const CommandNode&);

const std::map<std::string, Writer> shells{
    {"bash", bash::completion}, {"fish", fish::completion}, {"zsh", zsh::completion}};

[[noreturn]] void write(const CLI::App& app, Writer writer) {
  fmt::print("{}", writer(commandTree(app)));
  throw CLI::Success();
}

}  // namespace

void addDescribingCommands(CLI::App& app) {
  auto* completion =
      app.add_subcommand("completion", "Write the script by which a shell completes naips");
  const auto shell = std::make_shared<std::string>();
  completion->add_option("SHELL", *shell, "Whose script")->required()->check(CLI::IsMember(shells));
  completion->final_callback([&app, shell] { write(app, shells.at(*shell)); });

  app.add_subcommand("manual", "Write the manual page of naips, for man")->final_callback([&app] {
    write(app, manual);
  });
}

}  // namespace cli
