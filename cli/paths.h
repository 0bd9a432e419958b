#pragma once

#include <filesystem>
#include <istream>
#include <string>

namespace cli {

/// The path that a UTF-8 text names.
std::filesystem::path pathOf(const std::string& utf8);

/// A path as UTF-8 text.
std::string pathText(const std::filesystem::path& path);

/// All that a stream has. Throws `UsageError`, with that name of the stream, when it cannot be
/// read.
std::string contentOf(std::istream& stream, const std::string& name);

}  // namespace cli
