#pragma once

#include <string>
#include <string_view>

namespace cli {

/// A request document with the values of its passwords replaced by asterisks.
std::string masked(std::string_view document);

}  // namespace cli
