#pragma once

#include <string>

namespace cli {

/// Creates the folder when it is missing. Throws `UsageError` when it cannot be written to.
void prepareOutFolder(const std::string& folder);

/// Copies a file into the folder under this name (its own when empty), or a numbered one when that
/// is taken, and returns the copy's path. Throws `std::runtime_error`.
std::wstring copyInto(const std::string& folder, const std::wstring& file, const std::string& name);

}  // namespace cli
