#pragma once

#include <filesystem>

/// Files that programs make for their users.
namespace ktpnaips::files {

/// Makes an empty file; false when something has its name, links included. Throws
/// `std::system_error`.
bool makeNew(const std::filesystem::path& file);

/// Gives a file that was written beside its place its name, unless something stands there: returns
/// false then. Throws `std::system_error`.
bool moveToNew(const std::filesystem::path& file, const std::filesystem::path& place);

/// Makes a folder that only its owner enters; false when it cannot, or something has its name.
bool makePrivateFolder(const std::filesystem::path& folder);

/// True when other users of the system may read the file. Always false on Windows, where a user's
/// folder is closed to others.
bool isReadableByOthers(const std::filesystem::path& file);

}  // namespace ktpnaips::files
