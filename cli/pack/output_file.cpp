#include "cli/pack/output_file.h"

#include "cli/paths.h"
#include "cli/usage_error.h"

#include <fmt/format.h>

#include <cstdio>
#include <fstream>
#include <ios>
#include <stdexcept>
#include <system_error>

namespace cli::pack {

namespace fs = std::filesystem;

namespace {

/// A file of a name beside this one that nobody has, made empty.
fs::path makeBeside(const fs::path& file) {
  constexpr int attempts = 1000;
  for (int number = 1; number <= attempts; ++number) {
    fs::path beside = file;
    beside += fmt::format(".{}.part", number);
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(beside, ignored))) continue;
    if (std::ofstream(beside, std::ios::binary)) return beside;
    break;
  }
  throw UsageError(fmt::format("cannot write {}", pathText(file)));
}

}  // namespace

OutputFile::OutputFile(const std::string& file, bool mayReplace) : file_(pathOf(file)) {
  std::error_code ignored;
  replaces_ = fs::exists(file_, ignored);
  if (replaces_ && !mayReplace) {
    throw UsageError(fmt::format("{} is there already; give --force to replace it", file));
  }
  if (replaces_ && !fs::is_regular_file(file_, ignored)) {
    throw UsageError(fmt::format("{} is not a file that can be replaced", file));
  }
  partial_ = makeBeside(file_);
}

OutputFile::~OutputFile() {
  std::error_code ignored;
  if (!partial_.empty()) fs::remove(partial_, ignored);
}

void OutputFile::write(std::string_view content) const {
  std::ofstream stream(partial_, std::ios::binary | std::ios::trunc);
  stream.write(content.data(), static_cast<std::streamsize>(content.size()));
  stream.close();
  if (!stream) throw std::runtime_error(fmt::format("cannot write {}", pathText(partial_)));
}

void OutputFile::finish() {
  std::error_code error;
  fs::rename(partial_, file_, error);
  if (error) {
    throw std::runtime_error(fmt::format("cannot make {}: {}", pathText(file_), error.message()));
  }
  partial_.clear();
}

}  // namespace cli::pack
