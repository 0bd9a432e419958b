#pragma once

#include <filesystem>
#include <string>

namespace cli {

/// The path that a UTF-8 text names.
std::filesystem::path pathOf(const std::string& utf8);

/// A path as UTF-8 text.
std::string pathText(const std::filesystem::path& path);

}  // namespace cli
