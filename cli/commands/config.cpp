#include "cli/command.h"
#include "cli/property_output.h"
#include "cli/simulation.h"
#include "cli/text_output.h"

#include <ktpnaips/core/deployment.h>
#include <ktpnaips/platform/terminal.h>
#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cli {
namespace {

using ktpnaips::Deployment;
using ktpnaips::terminal::environment;
using ktpnaips::text::toUtf8;

/// What a request would be made with, and who says so.
struct Setting {
  std::string name;
  std::string value;
  std::string from;
};

/// What holds where neither the command line nor the configuration file says anything.
Setting unset(const std::string& name, const GlobalOptions& options) {
  Deployment deployment = Deployment::current();
  const auto fromEnvironment = [&](const char* variable, const char* otherwise) -> Setting {
    const auto value = environment(variable);
    return {name, value.value_or(otherwise), value ? variable : "default"};
  };
  if (name == "user" && options.simulate) return {name, Simulation::documentedUser(), "--simulate"};
  if (name == "user") return fromEnvironment("NAIPS_USER", "");
  if (name == "ca-file") return fromEnvironment("SSL_CERT_FILE", "");
  if (name == "mode") return {name, std::to_string(options.mode), "default"};
  if (name == "host") return {name, toUtf8(options.endpointHost(deployment)), "default"};
  if (name == "schema-namespace") return {name, toUtf8(deployment.schemaNamespace), "default"};
  return {name, "", "default"};
}

/// Says where the password comes from, and never what it is.
Setting password(const GlobalOptions& options) {
  const char* hidden = "(not shown)";
  if (options.passwordFile) return {"password", hidden, *options.passwordFile};
  if (environment("NAIPS_PASSWORD")) return {"password", hidden, "NAIPS_PASSWORD"};
  if (options.simulate) return {"password", hidden, "--simulate"};
  return {"password", "(asked for)", "terminal"};
}

Setting settingOf(const CLI::Option& option, const GlobalOptions& options) {
  const std::string name = option.get_lnames().front();
  if (option.count() == 0) {
    Setting setting = unset(name, options);
    if (option.get_items_expected_min() == 0) setting.value = "false";
    return setting;
  }
  // What the file sets stands before what the command line sets.
  const bool isConfigured = option.count() == 1 && options.configuration.has(name);
  return {name, option.results().back(),
          isConfigured ? options.configuration.file : "command line"};
}

std::vector<Setting> settingsOf(const CLI::App& root, const GlobalOptions& options) {
  std::vector<Setting> settings;
  for (const CLI::Option* option : root.get_options()) {
    const auto& heading = option->get_group();
    if (heading != "Account" && heading != "Service" && heading != "Output") continue;
    settings.push_back(settingOf(*option, options));
    if (settings.back().name == "password-file") settings.push_back(password(options));
  }
  return settings;
}

std::string fileLine(const Configuration& configuration) {
  if (!configuration.file.empty()) return configuration.file;
  const std::string file = defaultConfigurationFile();
  return file.empty() ? "none" : "none (" + file + " is not there)";
}

void showSettings(const CLI::App& root, const GlobalOptions& options) {
  const auto settings = settingsOf(root, options);
  if (options.json) {
    printJson([&](JsonObject& json) {
      json.setAll({{"Error", false}, {"ErrorText", ""}, {"Outcome", "success"}, {"Code", nullptr}});
      json.set("File", options.configuration.file);
      json.setItems(settings, [](const Setting& each) -> Json {
        return {{"Name", each.name}, {"Value", each.value}, {"From", each.from}};
      });
      json.set("Failures", Json::array());
    });
    return;
  }
  printLine("Configuration file: " + fileLine(options.configuration));
  printLine();
  Table table({"SETTING", "FROM", "VALUE"});
  for (const auto& [name, value, from] : settings) table.addRow({name, from, value});
  table.print();
}

const Registered showConfiguration({"config", "show",
                                    "Show what each setting is and where it comes from",
                                    "naips config show", [](CLI::App& app) -> Run {
                                      const CLI::App& root = *app.get_parent()->get_parent();
                                      return [&root](Session& session) {
                                        showSettings(root, session.options());
                                      };
                                    }});

}  // namespace
}  // namespace cli
