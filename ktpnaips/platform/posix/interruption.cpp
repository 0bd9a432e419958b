#include <ktpnaips/platform/interruption.h>

#include <signal.h>  // NOLINT(modernize-deprecated-headers): sigaction
#include <unistd.h>

#include <atomic>
#include <cstring>

namespace ktpnaips::interruption {
namespace {

std::atomic<const char*> announced = nullptr;
std::atomic<const char*> removed = nullptr;
std::atomic<bool> isPostponed = false;
std::atomic<int> waiting = 0;
static_assert(std::atomic<const char*>::is_always_lock_free, "the handler reads them");

void write(const char* text) {
  const ssize_t written = ::write(STDERR_FILENO, text, std::strlen(text));
  static_cast<void>(written);  // nobody is left to tell
}

// Only what a handler may call.
void end(int signal) {
  if (const char* const line = announced.load()) {
    write(line);
    write("\n");
  }
  if (const char* const file = removed.load()) ::unlink(file);
  ::signal(signal, SIG_DFL);
  ::raise(signal);
}

extern "C" void interrupted(int signal) {
  if (isPostponed) {
    waiting = signal;
  } else {
    end(signal);
  }
}

void handle(int signal) {
  struct sigaction present {};
  const bool isDefault = ::sigaction(signal, nullptr, &present) == 0 &&
                         (present.sa_flags & SA_SIGINFO) == 0 && present.sa_handler == SIG_DFL;
  if (!isDefault) return;
  struct sigaction action {};
  action.sa_handler = interrupted;
  action.sa_flags = static_cast<int>(SA_RESTART);
  ::sigaction(signal, &action, nullptr);
}

void handleAll() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) handle(signal);
}

}  // namespace

void announce(const char* line) noexcept {
  announced = line;
  if (line != nullptr) handleAll();
}

Removal::Removal(const std::filesystem::path& file) : file_(file.native()) {
  removed = file_.c_str();
  handleAll();
}

Removal::~Removal() {
  removed = nullptr;
}

Postponement::Postponement() noexcept {
  isPostponed = true;
  handleAll();
}

Postponement::~Postponement() {
  isPostponed = false;
  if (const int signal = waiting.exchange(0); signal != 0) end(signal);
}

bool isWaiting() noexcept {
  return waiting != 0;
}

}  // namespace ktpnaips::interruption
