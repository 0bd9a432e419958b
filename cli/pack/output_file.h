#pragma once

#include "cli/part_file.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace cli::pack {

/// A file that a command makes. It is written beside its place and moved there whole, so that
/// nobody ever sees half of it, and an old one stays until then.
class OutputFile {
 public:
  /// Throws `UsageError` when the file is there already and may not be replaced, or cannot be one.
  OutputFile(const std::string& file, bool mayReplace);
  /// Where to write it; a file of this name is made at once.
  [[nodiscard]] const std::filesystem::path& partial() const { return part_->path(); }
  /// Writes the content. Throws `std::runtime_error`.
  void write(std::string_view content) const;
  /// Moves it to its place. Throws `std::runtime_error`, as when another program has made a file
  /// there that may not be replaced.
  void finish();

  [[nodiscard]] bool replaces() const { return replaces_; }

 private:
  std::filesystem::path file_;
  bool mayReplace_;
  bool replaces_ = false;
  std::optional<PartFile> part_;
};

}  // namespace cli::pack
