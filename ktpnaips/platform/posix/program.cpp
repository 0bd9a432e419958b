#include <ktpnaips/platform/program.h>

#include <ktpnaips/platform/interruption.h>
#include <ktpnaips/platform/terminal.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <sstream>
#include <system_error>
#include <thread>

namespace ktpnaips::program {
namespace {

namespace fs = std::filesystem;

/// Standard input, output and error of a program that reads and shows nothing.
class NoStreams {
 public:
  NoStreams() {
    posix_spawn_file_actions_init(&actions_);
    open(STDIN_FILENO, O_RDONLY);
    open(STDOUT_FILENO, O_WRONLY);
    open(STDERR_FILENO, O_WRONLY);
  }
  ~NoStreams() { posix_spawn_file_actions_destroy(&actions_); }
  NoStreams(const NoStreams&) = delete;
  NoStreams& operator=(const NoStreams&) = delete;

  [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  void open(int stream, int mode) {
    posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", mode, 0);
  }

  posix_spawn_file_actions_t actions_{};
};

/// Those of the environment but this one.
std::vector<char*> variablesWithout(std::string_view withheld) {
  const std::string start = std::string(withheld) + '=';
  std::vector<char*> variables;
  for (char** each = environ; each != nullptr && *each != nullptr; ++each) {
    if (!std::string_view(*each).starts_with(start)) variables.push_back(*each);
  }
  variables.push_back(nullptr);
  return variables;
}

}  // namespace

fs::path find(const std::string& name) {
  std::istringstream folders(terminal::environment("PATH").value_or(std::string()));
  std::string folder;
  while (std::getline(folders, folder, ':')) {
    if (folder.empty()) continue;
    fs::path file = fs::path(folder) / name;
    std::error_code ignored;
    if (fs::is_regular_file(file, ignored) && ::access(file.c_str(), X_OK) == 0) return file;
  }
  return {};
}

bool run(const fs::path& program, const std::vector<std::string>& arguments,
         std::string_view withheld, std::chrono::milliseconds limit) {
  std::vector<std::string> copies{program.string()};
  copies.insert(copies.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  pointers.reserve(copies.size() + 1);
  for (std::string& copy : copies) pointers.push_back(copy.data());
  pointers.push_back(nullptr);
  std::vector<char*> variables = variablesWithout(withheld);

  const NoStreams streams;
  pid_t child = 0;
  if (::posix_spawn(&child, program.c_str(), streams.get(), nullptr, pointers.data(),
                    variables.data()) != 0) {
    return false;
  }
  const auto end = std::chrono::steady_clock::now() + limit;
  int status = 0;
  pid_t ended = 0;
  while ((ended = ::waitpid(child, &status, WNOHANG)) == 0) {
    if (std::chrono::steady_clock::now() > end || interruption::isWaiting()) {
      ::kill(child, SIGKILL);
      ::waitpid(child, &status, 0);
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return ended == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace ktpnaips::program
