#pragma once

#include <ktpnaips/briefing/free_paths.h>
#include <ktpnaips/platform/temporary_file.h>

#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips {

/// Temporary files, deleted when their manager is released or the program ends, and unique names in
/// the data folder.
class TempFileManager {
 public:
  TempFileManager();
  TempFileManager(const TempFileManager&) = delete;
  TempFileManager& operator=(const TempFileManager&) = delete;
  ~TempFileManager();

  /// Makes a new, empty file in the system's temporary folder and returns its path; an empty text
  /// on failure, and while the program ends.
  std::wstring CreateTempFile(std::wstring_view prefix);

  /// A path in the data folder that no file occupies yet: the name with a number from 1 before its
  /// extension. Creates the folder, not the file. Without a data folder, a temporary file of the
  /// shared manager instead; an empty name gives an empty text.
  std::wstring GetUniqueFilename(std::wstring_view name);
  /// The same among the free paths of an answer's products.
  std::wstring GetUniqueFilename(std::wstring_view name, FreePaths& paths);

  /// Writes a product file at `path`, which `GetUniqueFilename` chose for `name`, and returns where
  /// it was written: under the next free number when the path has been taken meanwhile. Throws
  /// fault 52 for a name that would lead out of the data folder, 61, 70, 75 or 76 when writing
  /// fails.
  std::wstring writeProduct(std::wstring_view name, const std::wstring& path,
                            std::string_view bytes);
  /// The same among the free paths of an answer's products.
  std::wstring writeProduct(std::wstring_view name, const std::wstring& path,
                            std::string_view bytes, FreePaths& paths);

  /// Writes a product at the path of one of its temporary files, which is gone when that fails.
  /// Throws fault 61, 70, 75 or 76, the last also when the file is not there any more.
  void writeTemporary(const std::wstring& path, std::string_view bytes);

 private:
  struct AtExit;

  files::TemporaryFile* find(std::wstring_view path);
  void removeFiles() noexcept;

  std::vector<files::TemporaryFile> files_;
  TempFileManager* next_ = nullptr;  // of all that there are
  TempFileManager* previous_ = nullptr;
};

/// The calling thread's manager, which lives as long as the thread's library state.
TempFileManager& sharedTempFiles();

}  // namespace ktpnaips
