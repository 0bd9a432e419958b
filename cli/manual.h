#pragma once

#include "cli/command_tree.h"

#include <string>

namespace cli {

/// The manual page of naips, for man.
std::string manual(const CommandNode& root);

}  // namespace cli
