#include "simulator/state_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace sim {
namespace {

[[noreturn]] void fail(const std::filesystem::path& path, const std::string& reason) {
  throw std::runtime_error("The simulated service cannot use " + path.string() + ": " + reason +
                           ". Choose another state folder.");
}

std::string reasonOf(int error) {
  return std::generic_category().message(error);
}

void writeAll(int file, std::string_view text, const std::filesystem::path& path) {
  while (!text.empty()) {
    const ssize_t written = ::write(file, text.data(), text.size());
    if (written < 0) {
      fail(path, reasonOf(errno));
    }
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

std::filesystem::path defaultStateFolder() {
  const char* state = std::getenv("XDG_STATE_HOME");
  if (state != nullptr && *state == '/') {
    return std::filesystem::path(state) / "naips-simulator";
  }
  const char* home = std::getenv("HOME");
  return std::filesystem::path(home != nullptr && *home == '/' ? home : "/tmp") /
         ".local/state/naips-simulator";
}

StateFolder::StateFolder(std::filesystem::path folder) : folder_(std::move(folder)) {
  std::error_code error;
  const bool made = std::filesystem::create_directories(folder_, error);
  if (error) {
    fail(folder_, error.message());
  }
  if (made) {
    std::filesystem::permissions(folder_, std::filesystem::perms::owner_all, error);
  }
}

std::string StateFolder::read(const std::filesystem::path& name) const {
  std::ifstream file(folder_ / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string StateFolder::storeSecret(
    const std::filesystem::path& name, const std::string& text,
    const std::function<bool(const std::string&)>& isUsable) const {
  const std::filesystem::path target = folder_ / name;
  const std::filesystem::path made = writeBeside(name, text, S_IRUSR | S_IWUSR);
  // A link, unlike a rename, does not replace what another service has just stored.
  const int linkError = ::link(made.c_str(), target.c_str()) == 0 ? 0 : errno;
  if (linkError != 0 && isUsable(read(name))) {
    ::unlink(made.c_str());
    return read(name);
  }
  if (linkError == 0) {
    ::unlink(made.c_str());
  } else if (::rename(made.c_str(), target.c_str()) != 0) {
    fail(target, reasonOf(errno));
  }
  return text;
}

void StateFolder::publish(const std::filesystem::path& name, const std::string& text) const {
  if (read(name) == text) {
    return;
  }
  const std::filesystem::path made = writeBeside(name, text, S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH);
  if (::rename(made.c_str(), (folder_ / name).c_str()) != 0) {
    fail(folder_ / name, reasonOf(errno));
  }
}

std::filesystem::path StateFolder::writeBeside(const std::filesystem::path& name,
                                               std::string_view text, unsigned mode) const {
  std::string path = (folder_ / name).string() + ".XXXXXX";
  const int file = ::mkstemp(path.data());
  if (file < 0) {
    fail(folder_, reasonOf(errno));
  }
  const struct Closer {
    int file;
    ~Closer() { ::close(file); }
  } closer{file};
  writeAll(file, text, path);
  ::fchmod(file, mode);
  return path;
}

}  // namespace sim
