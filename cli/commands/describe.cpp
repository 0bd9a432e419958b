#include "cli/command.h"
#include "cli/command_tree.h"
#include "cli/completion.h"
#include "cli/manual.h"
#include "cli/standard_output.h"

#include <CLI/CLI.hpp>

#include <map>
#include <memory>
#include <string>

namespace cli {
namespace {

using Writer = std::string (*)(const CommandNode&);

const std::map<std::string, Writer> shells{
    {"bash", bash::completion}, {"fish", fish::completion}, {"zsh", zsh::completion}};

const Registered writeCompletion(
    {"", "completion", "Write the script by which a shell completes naips",
     "naips completion bash >naips-completion.bash", [](CLI::App& app) -> Run {
       const auto shell = std::make_shared<std::string>();
       app.add_option("SHELL", *shell, "Whose script")->required()->check(CLI::IsMember(shells));
       return [shell, root = app.get_parent()](Session&) {
         writeOutput(shells.at(*shell)(commandTree(*root)));
       };
     }});

const Registered writeManual({"", "manual", "Write the manual page of naips, for man",
                              "naips manual >naips.1", [](CLI::App& app) -> Run {
                                return [root = app.get_parent()](Session&) {
                                  writeOutput(manual(commandTree(*root)));
                                };
                              }});

}  // namespace
}  // namespace cli
