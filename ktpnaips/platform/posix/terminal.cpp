#include <ktpnaips/platform/terminal.h>

#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace ktpnaips::terminal {
namespace {

/// Keeps typed characters from being shown, for as long as it lives.
class WithoutEcho {
 public:
  WithoutEcho() {
    if (tcgetattr(STDIN_FILENO, &before_) != 0) return;
    termios quiet = before_;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    changed_ = tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet) == 0;
  }
  WithoutEcho(const WithoutEcho&) = delete;
  WithoutEcho& operator=(const WithoutEcho&) = delete;
  ~WithoutEcho() {
    if (changed_) tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_);
  }

 private:
  termios before_{};
  bool changed_ = false;
};

std::optional<std::string> readLine() {
  std::string line;
  if (!std::getline(std::cin, line)) return std::nullopt;
  return line;
}

}  // namespace

std::vector<std::string> arguments(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

bool canAsk() {
  return isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0;
}

bool showsColours(Stream stream) {
  const bool isTerminal = isatty(stream == Stream::output ? STDOUT_FILENO : STDERR_FILENO) != 0;
  return isTerminal && environment("TERM").value_or("dumb") != "dumb";
}

std::size_t columns() {
  winsize size{};
  const bool known = isatty(STDOUT_FILENO) != 0 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
  return known ? size.ws_col : 0;
}

std::optional<std::string> ask(const std::string& prompt) {
  std::fputs(prompt.c_str(), stderr);
  return readLine();
}

std::optional<std::string> askSecret(const std::string& prompt) {
  std::optional<std::string> line;
  {
    const WithoutEcho quiet;  // before the question, so that a quick answer is hidden and kept
    std::fputs(prompt.c_str(), stderr);
    line = readLine();
  }
  std::fputs("\n", stderr);
  return line;
}

std::optional<std::string> environment(const char* name) {
  const char* value = std::getenv(name);
  if (value == nullptr || *value == '\0') return std::nullopt;
  return value;
}

}  // namespace ktpnaips::terminal
