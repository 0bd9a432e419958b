#pragma once

#include <CLI/App.hpp>

#include <string>
#include <vector>

namespace cli {

/// The arguments with those of the configuration file in front, so that the command line wins.
/// The file is the one of `--config`, or the default one when it exists. A user name there gives
/// way to the environment's. Throws `UsageError` when the file or a key of it cannot be used.
std::vector<std::string> withConfigurationFile(const CLI::App& app,
                                               std::vector<std::string> arguments);

}  // namespace cli
