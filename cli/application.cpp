#include "cli/application.h"

#include "cli/command.h"
#include "cli/exit_status.h"
#include "cli/global_options.h"
#include "cli/help_text.h"
#include "cli/messages.h"
#include "cli/session.h"
#include "cli/standard_output.h"
#include "cli/usage_error.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <CLI/App.hpp>
#include <CLI/Config.hpp>

#include <algorithm>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

namespace cli {
namespace {

const std::map<std::string_view, const char*> groupHelp{{"account", "The account"},
                                                        {"brief", "Briefings"},
                                                        {"chart", "Charts"},
                                                        {"config", "The settings of naips"},
                                                        {"flight", "Flight notifications"},
                                                        {"met", "General MET messages"},
                                                        {"notam", "NOTAMs"},
                                                        {"route", "Standard routes"},
                                                        {"spfib", "Pre-flight bulletins"}};

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
    each->footer(fmt::format("Example:\n  {}", command.example));
    each->final_callback([&selected, run = command.setUp(*each)] { selected = run; });
  }
}

/// The command as far as it was understood: the words, as in "naips chart get", and the last of
/// them.
struct Understood {
  std::string words;
  const CLI::App* last;
};

Understood understoodPart(const CLI::App& app) {
  Understood part{app.get_name(), &app};
  for (auto next = app.get_subcommands(); !next.empty(); next = next.front()->get_subcommands()) {
    part.last = next.front();
    part.words += ' ' + part.last->get_name();
  }
  return part;
}

/// What to say when a group of commands was called without one of them.
std::string missingCommand(const CLI::App& app, const Understood& part) {
  std::vector<std::string> names;
  for (const auto* each : part.last->get_subcommands([](const auto*) { return true; })) {
    names.push_back(each->get_name());
  }
  const auto unknown = app.remaining(true);
  const auto word =
      std::ranges::find_if(unknown, [](const auto& each) { return !each.starts_with('-'); });
  const std::string what = word == unknown.end()
                               ? fmt::format("\"{}\" needs a command", part.words)
                               : fmt::format("there is no \"{} {}\"", part.words, *word);
  return fmt::format("{}: give one of {}", what, fmt::join(names, ", "));
}

/// What is wrong with the command line.
std::string problem(const CLI::App& app, const Understood& part, const CLI::ParseError& error) {
  const bool lacksCommand =
      part.last->get_require_subcommand_min() > 0 && part.last->get_subcommands().empty();
  if (lacksCommand) return missingCommand(app, part);
  const std::string_view text = error.what();  // of a conversion: "Could not convert: NAME = VALUE"
  const auto name = text.find(": ");
  const auto value = text.rfind(" = ");
  const bool isConversion = dynamic_cast<const CLI::ConversionError*>(&error) != nullptr;
  if (!isConversion || name == text.npos || value == text.npos) return std::string(text);
  return fmt::format("\"{}\" is not a number that {} can have", text.substr(value + 3),
                     text.substr(name + 2, value - name - 2));
}

int refuse(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) {  // help, or the version
    std::ostringstream text;
    app.exit(error, text, text);
    writeOutput(text.str());
    return success;
  }
  const Understood part = understoodPart(app);
  complainOfError(problem(app, part, error));
  complain(fmt::format("Try \"{} --help\".", part.words));
  return unusable;
}

void requireCombinable(const GlobalOptions& options) {
  if (options.dryRun && options.json) {
    throw UsageError("--dry-run writes the XML document: it cannot be combined with --json");
  }
}

/// Runs the command line. Returns the exit status, and in `done` what has been done at the service.
int answer(std::vector<std::string> arguments, std::string& done) {
  CLI::App app("Briefings and flight notifications from NAIPS", "naips");
  app.set_version_flag("--version", "naips " KTPNAIPS_VERSION);
  app.formatter(std::make_shared<HelpText>());
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
  try {
    options.configuration = readConfiguration(arguments);
    // In front, so that the command line wins.
    const auto& configured = options.configuration.arguments;
    arguments.insert(arguments.begin(), configured.begin(), configured.end());
    std::ranges::reverse(arguments);
    app.parse(std::move(arguments));
    requireCombinable(options);
    Session session(options);
    selected(session);
    session.finish();
    done = session.done();
    return session.exitStatus();
  } catch (const CLI::ParseError& error) {
    return refuse(app, error);
  } catch (const UsageError& error) {
    complainOfError(error.what());
    return unusable;
  }
}

}  // namespace

int run(std::vector<std::string> arguments) {
  std::string done;
  const int status = answer(std::move(arguments), done);
  const std::string lost = finishOutput();
  if (lost.empty()) return status;
  complainOfError(fmt::format("the result could not be written to standard output: {}", lost));
  if (!done.empty()) complain(done);
  return internalFailure;
}

}  // namespace cli
