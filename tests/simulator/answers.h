#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simtest {

// The texts of the elements of that name that hold text alone, in their order.
std::vector<std::string> texts(std::string_view answer, std::string_view element);

// The one such text; fails the test when there is not exactly one.
std::string text(std::string_view answer, std::string_view element);

std::string decodeBase64(std::string_view lines);

}  // namespace simtest
