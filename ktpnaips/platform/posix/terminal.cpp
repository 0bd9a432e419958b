#include <ktpnaips/platform/terminal.h>

#include <fcntl.h>
#include <signal.h>  // NOLINT(modernize-deprecated-headers): sigaction
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace ktpnaips::terminal {
namespace {

constexpr std::array ending{SIGHUP, SIGINT, SIGQUIT, SIGTERM};

/// The terminal and the signals' actions as they were while typed characters were shown.
struct Shown {
  termios terminal{};
  std::array<struct sigaction, ending.size()> actions{};
};

Shown shown;  // for a handler

/// Shows typed characters again before the program ends.
extern "C" void endWithEcho(int signal) {
  tcsetattr(STDIN_FILENO, TCSANOW, &shown.terminal);
  for (std::size_t i = 0; i < ending.size(); ++i) {
    if (ending[i] == signal) ::sigaction(signal, &shown.actions[i], nullptr);
  }
  ::raise(signal);
}

/// Keeps typed characters from being shown, for as long as it lives.
class WithoutEcho {
 public:
  WithoutEcho() {
    if (tcgetattr(STDIN_FILENO, &shown.terminal) != 0) return;
    for (std::size_t i = 0; i < ending.size(); ++i) handle(ending[i], shown.actions[i]);
    termios quiet = shown.terminal;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    changed_ = tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet) == 0;
  }
  WithoutEcho(const WithoutEcho&) = delete;
  WithoutEcho& operator=(const WithoutEcho&) = delete;
  ~WithoutEcho() {
    if (!changed_) return;
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &shown.terminal);
    for (std::size_t i = 0; i < ending.size(); ++i) {
      ::sigaction(ending[i], &shown.actions[i], nullptr);
    }
  }

 private:
  static void handle(int signal, struct sigaction& former) {
    ::sigaction(signal, nullptr, &former);
    const bool isIgnored = (former.sa_flags & SA_SIGINFO) == 0 && former.sa_handler == SIG_IGN;
    if (isIgnored) return;
    struct sigaction action {};
    action.sa_handler = endWithEcho;
    ::sigaction(signal, &action, nullptr);
  }

  bool changed_ = false;
};

std::optional<std::string> readLine() {
  std::string line;
  if (!std::getline(std::cin, line)) return std::nullopt;
  return line;
}

}  // namespace

void keepStreamsApart() {
  for (int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) >= 0) continue;
    // The lowest number that is free; reading and writing go on failing.
    const int opened = ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    static_cast<void>(opened);
  }
}

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
