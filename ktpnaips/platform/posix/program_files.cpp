#include <ktpnaips/platform/program_files.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace ktpnaips::files {

bool makeNew(const std::filesystem::path& file) {
  const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (descriptor < 0 && errno == EEXIST) return false;
  if (descriptor < 0) throw std::system_error(errno, std::generic_category());
  ::close(descriptor);
  return true;
}

bool moveToNew(const std::filesystem::path& file, const std::filesystem::path& place) {
  // A link replaces nothing; file systems without links know a renaming that replaces nothing.
  if (::link(file.c_str(), place.c_str()) == 0) {
    ::unlink(file.c_str());
    return true;
  }
  const int error = errno;
  if (error == EEXIST) return false;
  if (::renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, place.c_str(), RENAME_NOREPLACE) == 0) {
    return true;
  }
  if (errno == EEXIST) return false;
  throw std::system_error(error, std::generic_category());
}

bool makePrivateFolder(const std::filesystem::path& folder) {
  return ::mkdir(folder.c_str(), S_IRWXU) == 0;
}

bool isReadableByOthers(const std::filesystem::path& file) {
  struct stat status {};
  return ::stat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         (status.st_mode & (S_IRGRP | S_IROTH)) != 0;
}

}  // namespace ktpnaips::files
