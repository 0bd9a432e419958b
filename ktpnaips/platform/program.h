#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Other programs, for programs that call them.
namespace ktpnaips::program {

/// The program of this name on the search path; an empty path if there is none.
std::filesystem::path find(const std::string& name);

/// Runs the program, without a shell, for as long as the limit at most. It reads nothing, and what
/// it writes is not shown; it does not get the environment variable `withheld`. It is ended when an
/// interruption waits. Returns whether it ended with status 0. Names and arguments are UTF-8.
bool run(const std::filesystem::path& program, const std::vector<std::string>& arguments,
         std::string_view withheld, std::chrono::milliseconds limit);

}  // namespace ktpnaips::program
