#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#ifdef _WIN32
#include <ktpnaips/platform/files.h>
#else
#include "tests/support/scoped_environment.h"
#endif

namespace ktpnaips::test {

/// A new, empty folder, removed with all it holds at the end of the scope.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("ktpnaips-" + std::to_string(random()));
    } while (!std::filesystem::create_directories(path_));
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// A data folder that does not exist yet, in place of the person's own, until the end of the scope.
class DataFolder {
 public:
#ifdef _WIN32
  // The profile's folder cannot be moved for one process: what it holds steps aside. What a test
  // that was broken off has left there is nobody's.
  DataFolder() : path_(std::filesystem::path(files::applicationDataFolder()) / "VelmoraSoftware") {
    if (std::filesystem::exists(aside())) {
      std::filesystem::remove_all(path_);
    } else if (std::filesystem::exists(path_)) {
      std::filesystem::rename(path_, aside());
    }
  }
  ~DataFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
    if (std::filesystem::exists(aside(), ignored)) {
      std::filesystem::rename(aside(), path_, ignored);
    }
  }
#else
  DataFolder()
      : path_(scratch_.path() / "VelmoraSoftware"),
        variable_("XDG_DATA_HOME", scratch_.path().string()) {}
  ~DataFolder() = default;
#endif
  DataFolder(const DataFolder&) = delete;
  DataFolder& operator=(const DataFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const {
    return path_;
  }
  /// The full path, as the library gives it, of a file in the folder.
  [[nodiscard]] std::wstring file(const std::string& name) const {
    return (path_ / name).wstring();
  }
  /// The names of what the folder holds, in alphabetical order.
  [[nodiscard]] std::vector<std::string> names() const;

 private:
#ifdef _WIN32
  [[nodiscard]] std::filesystem::path aside() const {
    return path_.string() + ".aside";
  }
  std::filesystem::path path_;
#else
  ScratchFolder scratch_;
  std::filesystem::path path_;
  ScopedEnvironment variable_;
#endif
};

inline std::vector<std::string> DataFolder::names() const {
  std::vector<std::string> found;
  if (!std::filesystem::exists(path_)) return found;
  for (const auto& entry : std::filesystem::directory_iterator(path_)) {
    found.push_back(entry.path().filename().string());
  }
  std::sort(found.begin(), found.end());
  return found;
}

inline std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

inline void putFile(const std::filesystem::path& file, const std::string& content = {}) {
  std::ofstream(file, std::ios::binary) << content;
}

}  // namespace ktpnaips::test
