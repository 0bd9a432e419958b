#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sim {

// ASCII only, whatever the locale.
std::string upperCase(std::string_view text);

// Without blanks at the ends.
std::string trimmedUpperCase(std::string_view text);

// What stands between blanks.
std::vector<std::string_view> words(std::string_view text);

bool equalIgnoringCase(std::string_view left, std::string_view right);

}  // namespace sim
