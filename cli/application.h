#pragma once

#include <string>
#include <vector>

namespace cli {

/// Runs the naips command with these arguments (UTF-8) and returns its exit status.
int run(std::vector<std::string> arguments);

}  // namespace cli
