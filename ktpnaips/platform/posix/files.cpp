#include <ktpnaips/platform/cancellation.h>
#include <ktpnaips/platform/files.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>

#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace ktpnaips::files {

const wchar_t separator = L'/';

namespace {

constexpr std::size_t longestTemporaryFolder = 512;  // separator and end of the text included

/// The folder without slashes at its end, or an empty text for one that cannot be used: as the XDG
/// base directory rules have it, a relative path is as good as none. So is one that is not UTF-8,
/// which the texts of hosts would change into another.
std::string usable(const char* folder) {
  std::string path = folder != nullptr ? folder : "";
  if (!path.starts_with('/') || text::toUtf8(text::fromUtf8(path)) != path) return {};
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

std::string folderIn(const char* variable) {
  return usable(std::getenv(variable));
}

std::string homeFolder() {
  if (auto home = folderIn("HOME"); !home.empty()) return home;
  std::array<char, 16384> buffer{};
  passwd entry{};
  passwd* found = nullptr;
  getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
  return found != nullptr ? usable(found->pw_dir) : "";
}

[[noreturn]] void throwWriteFault(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      throw RuntimeFault(fault::diskFull);
    case EACCES:
    case EPERM:
    case EROFS:
      throw RuntimeFault(fault::permissionDenied);
    case ENOENT:
    case ENOTDIR:
      throw RuntimeFault(fault::pathNotFound);
    default:
      throw RuntimeFault(fault::pathFileAccess);
  }
}

class Descriptor {
 public:
  explicit Descriptor(int descriptor) noexcept : descriptor_(descriptor) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  [[nodiscard]] int get() const noexcept { return descriptor_; }
  [[nodiscard]] int close() noexcept { return ::close(std::exchange(descriptor_, -1)); }

 private:
  int descriptor_;
};

/// 0, or the error that stopped the writing.
int writeAll(Descriptor& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file.get(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return file.close() == 0 ? 0 : errno;
}

bool isFolder(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isFolder(DIR* in, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
  struct stat status {};
  return ::fstatat(::dirfd(in), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
         S_ISDIR(status.st_mode);
}

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

}  // namespace

std::wstring textOf(const std::filesystem::path& path) {
  return text::fromUtf8(path.native());
}

std::filesystem::path createTemporary(std::wstring_view prefix) {
  const platform::WithoutCancellation whole;
  std::string path = folderIn("TMPDIR");
  if (path.empty()) path = "/tmp";
  path += '/';
  if (path.size() >= longestTemporaryFolder) return {};
  path += text::toUtf8(prefix) + "XXXXXX.tmp";
  const Descriptor file(::mkostemps(path.data(), 4, O_CLOEXEC));
  if (file.get() < 0) return {};
  try {
    return std::string_view(path);  // not moved: its name is needed when that fails
  } catch (...) {                   // nobody would know of it
    ::unlink(path.c_str());
    throw;
  }
}

std::wstring applicationDataFolder() {
  if (const std::string folder = folderIn("XDG_DATA_HOME"); !folder.empty())
    return text::fromUtf8(folder);
  const std::string home = homeFolder();
  if (home.empty()) return {};
  return text::fromUtf8(home + "/.local/share");
}

void createFolders(std::wstring_view folder) {
  std::error_code ignored;
  std::filesystem::create_directories(text::toUtf8(folder), ignored);
}

bool exists(const std::filesystem::path& path) noexcept {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

bool isVisible(std::wstring_view path) {
  struct stat status {};
  return ::lstat(text::toUtf8(path).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

void forEachVisible(std::wstring_view folder, const std::function<void(std::wstring_view)>& use) {
  const std::unique_ptr<DIR, CloseFolder> listing(::opendir(text::toUtf8(folder).c_str()));
  if (listing == nullptr) return;
  while (const dirent* entry = ::readdir(listing.get())) {  // NOLINT(concurrency-mt-unsafe)
    if (!isFolder(listing.get(), *entry)) use(text::fromUtf8(entry->d_name));
  }
}

void remove(const std::filesystem::path& path) noexcept {
  ::unlink(path.c_str());  // nothing can be done about a leftover file
}

bool write(std::wstring_view path, Create how, std::string_view bytes) {
  const platform::WithoutCancellation whole;
  const std::string name = text::toUtf8(path);
  const int flags = how == Create::exclusively ? O_CREAT | O_EXCL : O_TRUNC | O_NOFOLLOW;
  Descriptor file(::open(name.c_str(), O_WRONLY | O_CLOEXEC | flags, 0666));
  if (file.get() < 0) {
    const int error = errno;
    if (error == EEXIST && !isFolder(name)) return false;
    throwWriteFault(error);
  }
  if (const int error = writeAll(file, bytes); error != 0) {
    ::unlink(name.c_str());
    throwWriteFault(error);
  }
  return true;
}

}  // namespace ktpnaips::files
