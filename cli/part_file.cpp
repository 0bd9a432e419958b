#include "cli/part_file.h"

#include <ktpnaips/platform/program_files.h>

#include <fmt/format.h>

#include <cerrno>
#include <fstream>
#include <ios>
#include <system_error>

namespace cli {

namespace fs = std::filesystem;
namespace files = ktpnaips::files;

namespace {

fs::path makeBeside(const fs::path& place) {
  constexpr int attempts = 1000;
  for (int number = 1; number <= attempts; ++number) {
    fs::path beside = place;
    beside += fmt::format(".{}.part", number);
    if (files::makeNew(beside)) return beside;
  }
  throw std::system_error(std::make_error_code(std::errc::file_exists));
}

}  // namespace

PartFile::PartFile(const fs::path& place) : path_(makeBeside(place)), removal_(path_) {}

PartFile::~PartFile() {
  std::error_code ignored;
  if (!path_.empty()) fs::remove(path_, ignored);
}

void PartFile::write(std::string_view content) const {
  errno = 0;
  std::ofstream stream(path_, std::ios::binary | std::ios::trunc);
  stream.write(content.data(), static_cast<std::streamsize>(content.size()));
  stream.close();
  if (!stream) throw std::system_error(errno, std::generic_category());
}

bool PartFile::moveToNew(const fs::path& place) {
  if (!files::moveToNew(path_, place)) return false;
  path_.clear();
  return true;
}

void PartFile::replace(const fs::path& place) {
  fs::rename(path_, place);
  path_.clear();
}

}  // namespace cli
