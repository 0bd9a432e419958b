#include <ktpnaips/platform/interruption.h>

#include <signal.h>  // NOLINT(modernize-deprecated-headers): sigaction
#include <unistd.h>

#include <atomic>
#include <cstring>

namespace ktpnaips::interruption {
namespace {

std::atomic<const char*> announced = nullptr;
static_assert(std::atomic<const char*>::is_always_lock_free, "the handler reads it");

void write(const char* text) {
  const ssize_t written = ::write(STDERR_FILENO, text, std::strlen(text));
  static_cast<void>(written);  // nobody is left to tell
}

// Only what a handler may call. The disposition is the default again when it runs.
extern "C" void endInterrupted(int signal) {
  if (const char* const line = announced.load()) {
    write(line);
    write("\n");
  }
  ::raise(signal);
}

void handle(int signal) {
  struct sigaction present {};
  const bool isDefault = ::sigaction(signal, nullptr, &present) == 0 &&
                         (present.sa_flags & SA_SIGINFO) == 0 && present.sa_handler == SIG_DFL;
  if (!isDefault) return;
  struct sigaction action {};
  action.sa_handler = endInterrupted;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  ::sigaction(signal, &action, nullptr);
}

}  // namespace

void announce(const char* line) noexcept {
  announced = line;
  if (line == nullptr) return;
  handle(SIGINT);
  handle(SIGTERM);
}

}  // namespace ktpnaips::interruption
