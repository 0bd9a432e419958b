#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

namespace fuzz {

/// A folder in memory, where there is one, for the files of all inputs of a process. The library's
/// data folder and its temporary folder stand in it.
class Scratch {
 public:
  Scratch() {
    const std::filesystem::path memory = "/dev/shm";
    const auto parent =
        std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
    path_ = parent / ("ktpnaips-fuzz-" + std::to_string(::getpid()));
    std::filesystem::remove_all(path_);  // of an earlier process that was broken off
    std::filesystem::create_directories(temporary());
    ::setenv("XDG_DATA_HOME", data().c_str(), 1);
    ::setenv("TMPDIR", temporary().c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", data().c_str(), 1);  // none of this machine's
  }
  ~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  [[nodiscard]] std::filesystem::path data() const { return path_ / "data"; }
  [[nodiscard]] std::filesystem::path products() const { return data() / "VelmoraSoftware"; }
  [[nodiscard]] std::filesystem::path temporary() const { return path_ / "temporary"; }

  /// Makes a file for the target to read. Returns its path.
  [[nodiscard]] std::string readable(const std::string& name, std::string_view content) const {
    std::filesystem::create_directories(toRead());
    std::ofstream(toRead() / name) << content;
    return toRead() / name;
  }

  /// True when there is nothing but the folders above, files to read, and files directly in that of
  /// the products, which are removed.
  bool holdsProductsOnly() {
    bool only = true;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path_)) {
      const auto& path = entry.path();
      const bool isProduct = entry.is_regular_file() && path.parent_path() == products();
      if (isProduct) std::filesystem::remove(path);
      const bool isToRead = path == toRead() || path.parent_path() == toRead();
      only = only &&
             (isProduct || isToRead || path == data() || path == products() || path == temporary());
    }
    return only;
  }

 private:
  [[nodiscard]] std::filesystem::path toRead() const { return path_ / "to-read"; }

  std::filesystem::path path_;
};

}  // namespace fuzz
