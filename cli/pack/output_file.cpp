#include "cli/pack/output_file.h"

#include "cli/paths.h"
#include "cli/usage_error.h"

#include <fmt/format.h>

#include <stdexcept>
#include <system_error>

namespace cli::pack {

namespace fs = std::filesystem;

OutputFile::OutputFile(const std::string& file, bool mayReplace)
    : file_(pathOf(file)), mayReplace_(mayReplace) {
  std::error_code ignored;
  replaces_ = fs::exists(file_, ignored);
  if (replaces_ && !mayReplace) {
    throw UsageError(fmt::format("{} is there already; give --force to replace it", file));
  }
  if (replaces_ && !fs::is_regular_file(file_, ignored)) {
    throw UsageError(fmt::format("{} is not a file that can be replaced", file));
  }
  try {
    part_.emplace(file_);
  } catch (const std::system_error& failure) {
    throw UsageError(fmt::format("cannot write {}: {}", file, failure.code().message()));
  }
}

void OutputFile::write(std::string_view content) const {
  try {
    part_->write(content);
  } catch (const std::system_error& failure) {
    throw std::runtime_error(
        fmt::format("cannot write {}: {}", pathText(file_), failure.code().message()));
  }
}

void OutputFile::finish() {
  bool isMade = true;
  try {
    if (mayReplace_) {
      part_->replace(file_);
    } else {
      isMade = part_->moveToNew(file_);
    }
  } catch (const std::system_error& failure) {
    throw std::runtime_error(
        fmt::format("cannot make {}: {}", pathText(file_), failure.code().message()));
  }
  if (!isMade) {
    throw std::runtime_error(
        fmt::format("{} has been made by another program meanwhile and is kept; give --force to "
                    "replace it",
                    pathText(file_)));
  }
}

}  // namespace cli::pack
