#pragma once

#include <ktpnaips/platform/interruption.h>

#include <filesystem>
#include <string_view>

namespace cli {

/// A file that is written beside its place and gets its name when it is whole, so that nobody ever
/// sees half of it. What has got no name at the end is removed, by an interruption too.
class PartFile {
 public:
  /// Makes an empty file beside this place that nobody has; links are not followed. Throws
  /// `std::system_error`.
  explicit PartFile(const std::filesystem::path& place);
  ~PartFile();
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// Writes the content. Throws `std::system_error`.
  void write(std::string_view content) const;
  /// Names the file; false when something has that name. Throws `std::system_error`.
  [[nodiscard]] bool moveToNew(const std::filesystem::path& place);
  /// Names the file in place of what may have that name. Throws `std::system_error`.
  void replace(const std::filesystem::path& place);

 private:
  std::filesystem::path path_;
  ktpnaips::interruption::Removal removal_;
};

}  // namespace cli
