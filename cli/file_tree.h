#pragma once

#include "cli/request_file.h"

#include <cstddef>
#include <string>
#include <string_view>

/// From the text of a request file to its nodes, with the lines that messages name.
namespace cli {

/// Parses JSON text. Throws `UsageError`.
FileNode parseTree(const std::string& text, const std::string& file);

std::string memberPath(const std::string& path, const std::string& key);
std::string elementPath(const std::string& path, std::size_t index);

/// Throws `UsageError`: file, line, path and the reason.
[[noreturn]] void refuseAt(const std::string& file, std::size_t line, const std::string& path,
                           std::string_view reason);

}  // namespace cli
