#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace ktpnaips::files {

/// A temporary file, which goes with its object unless another process has made it: the one that
/// this one was forked from.
class TemporaryFile {
 public:
  /// Makes one as `createTemporary` does; its path is empty on failure.
  explicit TemporaryFile(std::wstring_view prefix);
  TemporaryFile(TemporaryFile&& other) noexcept;
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  ~TemporaryFile();

  [[nodiscard]] const std::wstring& path() const noexcept { return path_; }

  /// Removes the file before its time. Needs no memory.
  void remove() noexcept;

 private:
  std::filesystem::path file_;
  std::int64_t maker_;
  std::wstring path_;
};

}  // namespace ktpnaips::files
