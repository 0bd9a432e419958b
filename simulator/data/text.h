#pragma once

#include <string>
#include <string_view>

namespace sim {

// ASCII only, whatever the locale.
std::string upperCase(std::string_view text);

bool equalIgnoringCase(std::string_view left, std::string_view right);

}  // namespace sim
