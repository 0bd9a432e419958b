#pragma once

#include <string>
#include <vector>

namespace cli {

/// The settings of a configuration file.
struct Configuration {
  std::string file;                    ///< its path; empty when none is read
  std::vector<std::string> arguments;  ///< as long options, "--name=value"

  /// Whether it sets the option of this long name.
  [[nodiscard]] bool has(const std::string& name) const;
};

/// Where the default configuration file is looked for; empty when the environment does not say.
std::string defaultConfigurationFile();

/// Reads the file that `--config` names in the arguments, or the default one when it exists. A user
/// name there gives way to the environment's. Throws `UsageError`, naming file and line, when the
/// file is not TOML, a key is unknown or a value cannot be that of its option.
Configuration readConfiguration(const std::vector<std::string>& arguments);

}  // namespace cli
