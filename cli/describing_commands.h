#pragma once

#include <CLI/App.hpp>

namespace cli {

/// Adds the commands that describe the command line itself and ask no service. They write what
/// they know of `app` and end the parsing with `CLI::Success`.
void addDescribingCommands(CLI::App& app);

}  // namespace cli
