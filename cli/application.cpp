#include "cli/application.h"

#include "cli/command.h"
#include "cli/configuration_file.h"
#include "cli/describing_commands.h"
#include "cli/exit_status.h"
#include "cli/global_options.h"
#include "cli/session.h"
#include "cli/usage_error.h"

#include <fmt/format.h>
#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace cli {
namespace {

const std::map<std::string_view, const char*> groupHelp{
    {"account", "The account"},         {"brief", "Briefings"},           {"chart", "Charts"},
    {"flight", "Flight notifications"}, {"met", "General MET messages"},  {"notam", "NOTAMs"},
    {"route", "Standard routes"},       {"spfib", "Pre-flight bulletins"}};

CLI::App* addCommandGroup(CLI::App& app, std::string_view name) {
  const auto help = groupHelp.find(name);
  auto* group = app.add_subcommand(std::string(name), help != groupHelp.end() ? help->second : "");
  group->require_subcommand(1);
  return group;
}

/// Adds every command; the one that is called leaves what runs it in `selected`.
void addCommands(CLI::App& app, Run& selected) {
  std::map<std::string_view, CLI::App*> groups{{"", &app}};
  for (const Command& command : allCommands()) {
    CLI::App*& parent = groups[command.group];
    if (parent == nullptr) parent = addCommandGroup(app, command.group);
    CLI::App* each = parent->add_subcommand(command.name, command.help);
    each->final_callback([&selected, run = command.setUp(*each)] { selected = run; });
  }
}

/// The command as far as it was understood, as in "naips chart get".
std::string understoodCommand(const CLI::App& app) {
  std::string words = app.get_name();
  for (auto next = app.get_subcommands(); !next.empty(); next = next.front()->get_subcommands()) {
    words += ' ' + next.front()->get_name();
  }
  return words;
}

/// CLI11's messages, with where to look next.
int refuse(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) return app.exit(error);
  fmt::print(stderr, "naips: {}\nTry \"{} --help\".\n", error.what(), understoodCommand(app));
  return unusable;
}

void requireCombinable(const GlobalOptions& options) {
  if (options.dryRun && options.json) {
    throw UsageError("--dry-run writes the XML document: it cannot be combined with --json");
  }
}

}  // namespace

int run(std::vector<std::string> arguments) {
  CLI::App app("Briefings and flight notifications from NAIPS", "naips");
  app.set_version_flag("--version", "naips " KTPNAIPS_VERSION);
  app.fallthrough();
  app.require_subcommand(1);
  std::string configurationFile;
  app.add_option("--config", configurationFile,
                 "Configuration file (TOML, keys as the long options); default "
                 "$XDG_CONFIG_HOME/naips/config.toml")
      ->type_name("FILE");
  GlobalOptions options;
  options.addTo(app);
  Run selected;
  addCommands(app, selected);
  addDescribingCommands(app);
  try {
    arguments = withConfigurationFile(app, std::move(arguments));
    std::ranges::reverse(arguments);
    app.parse(std::move(arguments));
    requireCombinable(options);
    Session session(options);
    selected(session);
    return session.exitStatus();
  } catch (const CLI::ParseError& error) {
    return refuse(app, error);
  } catch (const UsageError& error) {
    fmt::print(stderr, "naips: {}\n", error.what());
    return unusable;
  }
}

}  // namespace cli
