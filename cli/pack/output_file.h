#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace cli::pack {

/// A file that a command makes. It is written beside its place and moved there whole, so that
/// nobody ever sees half of it, and an old one stays until then.
class OutputFile {
 public:
  /// Throws `UsageError` when the file is there already and may not be replaced, or cannot be one.
  OutputFile(const std::string& file, bool mayReplace);
  /// Removes what was written and not moved.
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// Where to write it; a file of this name is made at once.
  [[nodiscard]] const std::filesystem::path& partial() const { return partial_; }
  /// Writes the content. Throws `std::runtime_error`.
  void write(std::string_view content) const;
  /// Moves it to its place. Throws `std::runtime_error`.
  void finish();

  [[nodiscard]] bool replaces() const { return replaces_; }

 private:
  std::filesystem::path file_;
  std::filesystem::path partial_;
  bool replaces_ = false;
};

}  // namespace cli::pack
