#include "cli/configuration_file.h"

#include "cli/paths.h"
#include "cli/usage_error.h"

#include <ktpnaips/platform/terminal.h>

#include <fmt/format.h>
#include <CLI/Config.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string_view>

namespace cli {
namespace {

using ktpnaips::terminal::environment;

/// The file that `--config` names, or nothing.
std::optional<std::string> namedFile(const std::vector<std::string>& arguments) {
  constexpr std::string_view option = "--config";
  std::optional<std::string> file;
  for (auto each = arguments.begin(); each != arguments.end(); ++each) {
    if (*each == option && std::next(each) != arguments.end()) file = *std::next(each);
    if (each->starts_with("--config=")) file = each->substr(option.size() + 1);
  }
  return file;
}

std::optional<std::string> existingDefaultFile() {
  const std::string file = defaultConfigurationFile();
  std::error_code ignored;
  if (file.empty() || !std::filesystem::exists(pathOf(file), ignored)) return std::nullopt;
  return file;
}

std::vector<CLI::ConfigItem> read(const std::string& file) {
  std::ifstream stream(pathOf(file));
  if (!stream) throw UsageError(fmt::format("cannot read the configuration file \"{}\"", file));
  return CLI::ConfigTOML().from_config(stream);
}

std::string unknownKey(const std::string& file, const std::string& key) {
  if (key.find("password") != std::string::npos) {
    return fmt::format("\"{}\" in {}: a password does not belong there; give \"password-file\"",
                       key, file);
  }
  return fmt::format("\"{}\" in {} is not a setting; the keys are the long options of naips", key,
                     file);
}

}  // namespace

bool Configuration::has(const std::string& name) const {
  return std::ranges::any_of(arguments, [start = "--" + name + "="](const auto& argument) {
    return argument.starts_with(start);
  });
}

std::string defaultConfigurationFile() {
  std::filesystem::path folder;
  if (const auto config = environment("XDG_CONFIG_HOME")) {
    folder = pathOf(*config);
  } else if (const auto home = environment("HOME")) {
    folder = pathOf(*home) / ".config";
  } else if (const auto data = environment("APPDATA")) {  // Windows
    folder = pathOf(*data);
  } else {
    return {};
  }
  return pathText(folder / "naips" / "config.toml");
}

Configuration readConfiguration(const CLI::App& app, const std::vector<std::string>& arguments) {
  auto file = namedFile(arguments);
  if (!file) file = existingDefaultFile();
  if (!file) return {};

  Configuration configuration{*file, {}};
  for (const auto& item : read(*file)) {
    if (item.name == "++" || item.name == "--") continue;  // the parser's section marks
    const auto* option = app.get_option_no_throw("--" + item.name);
    const bool isSetting = option != nullptr && item.parents.empty() && item.name != "config" &&
                           item.name != "help" && item.name != "version";
    if (!isSetting || item.inputs.size() != 1) throw UsageError(unknownKey(*file, item.fullname()));
    if (item.name == "user" && environment("NAIPS_USER")) continue;
    configuration.arguments.push_back(fmt::format("--{}={}", item.name, item.inputs.front()));
  }
  return configuration;
}

}  // namespace cli
