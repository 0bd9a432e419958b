#pragma once

#include <string_view>

namespace cli::pack {

/// The style sheet of a pack: for phones, wider screens and A4 paper.
std::string_view styleSheet();

}  // namespace cli::pack
