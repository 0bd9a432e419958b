#include <ktpnaips/platform/files.h>
#include <ktpnaips/platform/process.h>
#include <ktpnaips/platform/temporary_file.h>

#include <utility>

namespace ktpnaips::files {
namespace {

constexpr std::int64_t nobody = -1;

}  // namespace

TemporaryFile::TemporaryFile(std::wstring_view prefix)
    : file_(createTemporary(prefix)), maker_(platform::processNumber()) {
  try {
    path_ = textOf(file_);
  } catch (...) {  // nobody would know of it
    remove();
    throw;
  }
}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : file_(std::move(other.file_)),
      maker_(std::exchange(other.maker_, nobody)),
      path_(std::move(other.path_)) {}

TemporaryFile::~TemporaryFile() {
  remove();
}

void TemporaryFile::remove() noexcept {
  const bool isOwn = std::exchange(maker_, nobody) == platform::processNumber();
  if (isOwn && files::exists(file_)) files::remove(file_);
}

}  // namespace ktpnaips::files
