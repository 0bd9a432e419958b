#include <ktpnaips/platform/program_files.h>

#include <windows.h>

#include <system_error>

namespace ktpnaips::files {

bool makeNew(const std::filesystem::path& file) {
  const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle != INVALID_HANDLE_VALUE) {
    CloseHandle(handle);
    return true;
  }
  const DWORD error = GetLastError();
  if (error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS) return false;
  throw std::system_error(static_cast<int>(error), std::system_category());
}

bool moveToNew(const std::filesystem::path& file, const std::filesystem::path& place) {
  if (MoveFileExW(file.c_str(), place.c_str(), 0) != 0) return true;
  const DWORD error = GetLastError();
  if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS) return false;
  throw std::system_error(static_cast<int>(error), std::system_category());
}

bool makePrivateFolder(const std::filesystem::path& folder) {
  return CreateDirectoryW(folder.c_str(), nullptr) != 0;
}

bool isReadableByOthers(const std::filesystem::path&) {
  return false;
}

}  // namespace ktpnaips::files
