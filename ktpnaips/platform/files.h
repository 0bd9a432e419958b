#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

/// Temporary files, the data folder and the files written into it.
namespace ktpnaips::files {

/// Separates folder names in a path: a backslash on Windows, a slash elsewhere.
extern const wchar_t separator;

/// The text of a path, whatever the locale.
std::wstring textOf(const std::filesystem::path& path);

/// Makes a new, empty file in the system's temporary folder, readable by its owner only, named by
/// the prefix, a unique number and ".tmp". Returns its full path, or an empty one on failure.
std::filesystem::path createTemporary(std::wstring_view prefix);

/// The folder for application data of the default user profile, without a separator at its end, or
/// an empty text when there is none.
std::wstring applicationDataFolder();

/// Creates the folder and its missing parents, quietly: a failure shows when a file is created.
void createFolders(std::wstring_view folder);

/// True when something stands at the path and is not a folder. Needs no memory.
bool exists(const std::filesystem::path& path) noexcept;

/// True when a search with ordinary attributes finds the path: folders, and on Windows hidden and
/// system files, are not seen.
bool isVisible(std::wstring_view path);

/// Hands over the names in the folder that `isVisible` would find, one by one, in any order, from
/// one listing; none when the folder cannot be read. A name ends with its call.
void forEachVisible(std::wstring_view folder, const std::function<void(std::wstring_view)>& use);

/// True when `name` can be a file directly inside a folder, here and where the folder may be copied
/// to: not empty, no separator, drive letter, wildcard or control character, no name of a device.
bool isPlainName(std::wstring_view name);

/// Removes the file if it can. Needs no memory.
void remove(const std::filesystem::path& path) noexcept;

enum class Create {
  exclusively,  ///< the file must not exist
  never         ///< the file must exist, and is emptied
};

/// Opens a file and writes it whole. Returns false, having written nothing, when
/// `Create::exclusively` finds a file (of any kind but a folder, links included) there. Throws
/// fault 61, 70, 75 or 76; a file that could not be written whole is removed.
bool write(std::wstring_view path, Create how, std::string_view bytes);

}  // namespace ktpnaips::files
