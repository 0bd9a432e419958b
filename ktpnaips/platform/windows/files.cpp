#include <ktpnaips/platform/files.h>

#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/windows/system_text.h>

#include <windows.h>

#include <imagehlp.h>
#include <shfolder.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace ktpnaips::files {

const wchar_t separator = L'\\';

namespace {

class FileHandle {
 public:
  explicit FileHandle(HANDLE handle) noexcept : handle_(handle) {}
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;
  ~FileHandle() {
    if (isOpen()) CloseHandle(handle_);
  }
  [[nodiscard]] bool isOpen() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] HANDLE get() const noexcept { return handle_; }

 private:
  HANDLE handle_;
};

/// What a search for a path or pattern finds, folders and hidden and system files left out.
class Search {
 public:
  explicit Search(const std::wstring& path) noexcept
      : handle_(FindFirstFileW(path.c_str(), &found_)), hasFound_(isOpen()) {}
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;
  ~Search() {
    if (isOpen()) FindClose(handle_);
  }
  /// The name of the next file; empty at the end. It stands until the next call.
  std::wstring_view next() {
    while (hasFound_) {
      const bool isOrdinary = (found_.dwFileAttributes & leftOut) == 0;
      name_ = found_.cFileName;
      hasFound_ = FindNextFileW(handle_, &found_) != 0;
      if (isOrdinary) return name_;
    }
    return {};
  }

 private:
  static constexpr DWORD leftOut =
      FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

  [[nodiscard]] bool isOpen() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }

  WIN32_FIND_DATAW found_{};
  HANDLE handle_;
  bool hasFound_;
  std::wstring name_;
};

bool isFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

constexpr DWORD diskQuotaExceeded = 1295;  // not named by all headers

[[noreturn]] void throwWriteFault(DWORD error) {
  switch (error) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case diskQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
      throw RuntimeFault(fault::diskFull);
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_WRITE_PROTECT:
      throw RuntimeFault(fault::permissionDenied);
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_DIRECTORY:
      throw RuntimeFault(fault::pathNotFound);
    default:
      throw RuntimeFault(fault::pathFileAccess);
  }
}

/// 0, or the error that stopped the writing.
DWORD writeAll(const FileHandle& file, std::string_view bytes) {
  constexpr std::size_t longestPiece = 1U << 26U;
  while (!bytes.empty()) {
    const auto piece = static_cast<DWORD>(std::min(bytes.size(), longestPiece));
    DWORD written = 0;
    if (WriteFile(file.get(), bytes.data(), piece, &written, nullptr) == 0) return GetLastError();
    bytes.remove_prefix(written);
  }
  return ERROR_SUCCESS;
}

/// Writes into the file that is opened anew; returns as `writeAll`.
DWORD writeNew(const std::wstring& path, DWORD disposition, std::string_view bytes, bool& opened) {
  const FileHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, disposition,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  opened = file.isOpen();
  return opened ? writeAll(file, bytes) : GetLastError();
}

std::wstring_view lastPart(std::wstring_view path) {
  return path.substr(path.find_last_of(L"\\/") + 1);
}

}  // namespace

std::wstring textOf(const std::filesystem::path& path) {
  return path.native();
}

std::filesystem::path createTemporary(std::wstring_view prefix) {
  std::array<char, 512> folder{};
  const DWORD length = GetTempPathA(static_cast<DWORD>(folder.size()), folder.data());
  if (length < 1 || length >= folder.size()) return {};
  std::array<char, 576> path{};
  if (GetTempFileNameA(folder.data(), toAnsi(prefix).c_str(), 0, path.data()) == 0) return {};
  try {
    return fromAnsi(path.data());
  } catch (...) {  // nobody would know of it
    DeleteFileA(path.data());
    throw;
  }
}

std::wstring applicationDataFolder() {
  constexpr int roamingApplicationData = 26;
  constexpr DWORD defaultPath = 1;
  const HANDLE defaultUser = reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-1));  // NOLINT
  std::array<char, MAX_PATH + 1> path{};
  path.fill(' ');
  path.back() = '\0';
  if (SHGetFolderPathA(nullptr, roamingApplicationData, defaultUser, defaultPath, path.data()) !=
      S_OK) {
    return {};
  }
  return fromAnsi(path.data());
}

void createFolders(std::wstring_view folder) {
  std::string path = toAnsi(folder);
  std::ranges::replace(path, '/', '\\');
  if (!path.ends_with('\\')) path += '\\';
  MakeSureDirectoryPathExists(path.c_str());
}

bool exists(const std::filesystem::path& path) noexcept {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool isVisible(std::wstring_view path) {
  return !Search(std::wstring(path)).next().empty();
}

void forEachVisible(std::wstring_view folder, const std::function<void(std::wstring_view)>& use) {
  std::wstring pattern(folder);
  if (!pattern.ends_with(separator)) pattern += separator;
  Search search(pattern + L'*');
  for (auto name = search.next(); !name.empty(); name = search.next()) use(name);
}

void remove(const std::filesystem::path& path) noexcept {
  DeleteFileW(path.c_str());  // nothing can be done about a leftover file
}

bool write(std::wstring_view path, Create how, std::string_view bytes) {
  if (!isPlainName(lastPart(path))) throw RuntimeFault(fault::badFileName);
  const std::wstring name(path);
  const bool exclusively = how == Create::exclusively;
  bool opened = false;
  const DWORD error = writeNew(name, exclusively ? CREATE_NEW : TRUNCATE_EXISTING, bytes, opened);
  if (error == ERROR_SUCCESS) return true;
  if (opened) {
    DeleteFileW(name.c_str());
    throwWriteFault(error);
  }
  if (isFolder(name)) throw RuntimeFault(fault::pathFileAccess);
  if (error == ERROR_FILE_EXISTS && exclusively) return false;
  throwWriteFault(error);
}

}  // namespace ktpnaips::files
