#include "cli/configuration_file.h"

#include "cli/file_tree.h"
#include "cli/global_options.h"
#include "cli/paths.h"

#include <ktpnaips/platform/terminal.h>

#include <fmt/format.h>
#include <toml++/toml.h>

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

toml::table read(const std::string& file) {
  std::ifstream stream(pathOf(file), std::ios::binary);
  const std::string text = contentOf(stream, fmt::format("the configuration file \"{}\"", file));
  try {
    return toml::parse(text);
  } catch (const toml::parse_error& error) {
    refuseAt(file, error.source().begin.line, "the content",
             fmt::format("is not TOML ({}): write each setting as in user = \"pilot1\"",
                         error.description()));
  }
}

/// What can be set in the file: the global options, parsed as on the command line.
class Settings {
 public:
  Settings() {
    app_.set_help_flag();
    options_.addTo(app_);
  }

  [[nodiscard]] const CLI::Option* find(const std::string& name) const {
    return app_.get_option_no_throw("--" + name);
  }
  /// Throws what the option's parsing throws.
  void parse(const std::string& argument) { app_.parse(std::vector<std::string>{argument}); }

 private:
  GlobalOptions options_;
  CLI::App app_;
};

std::string unknownKey(const std::string& key) {
  return key.find("password") != std::string::npos
             ? "is not a setting: a password does not belong there; give \"password-file\""
             : "is not a setting: the keys are the long options of naips";
}

/// A value of a kind that the option does not take.
std::string wrongType(const CLI::Option& option, const std::string& key) {
  if (option.get_items_expected_min() == 0) {
    return fmt::format("must be true or false: write {} = true", key);
  }
  if (option.get_type_name() == "N") {
    return fmt::format("must be a whole number: write {} = 1, without quotation marks", key);
  }
  return fmt::format("must be a text: write {} = \"...\", in quotation marks", key);
}

/// The value as the command line would have it; nothing when it is of the wrong type.
std::optional<std::string> valueOf(const CLI::Option& option, const toml::node& node) {
  const bool isFlag = option.get_items_expected_min() == 0;
  const bool isNumber = option.get_type_name() == "N" || option.check_lname("verbose");
  if (const auto* truth = node.as_boolean(); truth != nullptr && isFlag)
    return truth->get() ? "true" : "false";
  if (const auto* number = node.as_integer(); number != nullptr && isNumber)
    return std::to_string(number->get());
  // A flag such as --simulate may be given a text, too.
  const bool takesText = !isNumber && option.get_items_expected_max() > 0;
  if (const auto* text = node.as_string(); text != nullptr && takesText) return text->get();
  return std::nullopt;
}

}  // namespace

bool Configuration::has(const std::string& name) const {
  return std::ranges::any_of(arguments, [start = "--" + name + "="](const auto& argument) {
    return argument.starts_with(start);
  });
}

std::string defaultConfigurationFile() {
  // A relative path is as good as none, as the XDG base directory rules have it.
  const auto folderIn = [](const char* variable) {
    const auto value = environment(variable);
    const std::filesystem::path folder = value ? pathOf(*value) : std::filesystem::path();
    return folder.is_absolute() ? folder : std::filesystem::path();
  };
  auto folder = folderIn("XDG_CONFIG_HOME");
  if (folder.empty()) {
    if (const auto home = folderIn("HOME"); !home.empty()) folder = home / ".config";
  }
  if (folder.empty()) folder = folderIn("APPDATA");  // Windows
  return folder.empty() ? std::string() : pathText(folder / "naips" / "config.toml");
}

Configuration readConfiguration(const std::vector<std::string>& arguments) {
  auto file = namedFile(arguments);
  if (!file) file = existingDefaultFile();
  if (!file) return {};

  Configuration configuration{*file, {}};
  const toml::table table = read(*file);
  for (const auto& [key, node] : table) {
    const std::string name(key.str());
    const auto refuse = [&, &at = node.source()](const std::string& reason) {
      refuseAt(*file, at.begin.line, fmt::format("\"{}\"", name), reason);
    };
    Settings settings;
    const CLI::Option* option = settings.find(name);
    if (option == nullptr) refuse(unknownKey(name));
    const auto value = valueOf(*option, node);
    if (!value) refuse(wrongType(*option, name));
    const std::string argument = fmt::format("--{}={}", name, *value);
    try {
      settings.parse(argument);
    } catch (const CLI::ParseError& error) {
      refuse(fmt::format("cannot be {}: {}", *value, error.what()));
    }
    if (name == "user" && environment("NAIPS_USER")) continue;
    configuration.arguments.push_back(argument);
  }
  return configuration;
}

}  // namespace cli
