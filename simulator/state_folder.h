#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace sim {

// naips-simulator in the user's XDG state folder.
std::filesystem::path defaultStateFolder();

// A folder that outlives the service and may be used by several services at once. Files appear in
// it whole or not at all.
class StateFolder {
 public:
  // Makes the folder, for its owner alone; throws std::runtime_error when that fails.
  explicit StateFolder(std::filesystem::path folder);

  std::string read(const std::filesystem::path& name) const;  // empty when there is none

  // Stores a file that only its owner can read, unless a usable one has appeared meanwhile, and
  // returns what stands there then.
  std::string storeSecret(const std::filesystem::path& name, const std::string& text,
                          const std::function<bool(const std::string&)>& isUsable) const;

  // Stores a file that everybody may read, unless it stands there already.
  void publish(const std::filesystem::path& name, const std::string& text) const;

 private:
  std::filesystem::path writeBeside(const std::filesystem::path& name, std::string_view text,
                                    unsigned mode) const;

  std::filesystem::path folder_;
};

}  // namespace sim
