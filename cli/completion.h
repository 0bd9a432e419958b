#pragma once

#include "cli/command_tree.h"

#include <string>

/// Scripts by which shells complete the words of naips.
namespace cli {

namespace bash {
std::string completion(const CommandNode& root);
}
namespace zsh {
std::string completion(const CommandNode& root);
}
namespace fish {
std::string completion(const CommandNode& root);
}

}  // namespace cli
