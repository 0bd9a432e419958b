#include <ktpnaips/platform/interruption.h>

#include <windows.h>

#include <atomic>
#include <cstring>

namespace ktpnaips::interruption {
namespace {

std::atomic<const char*> announced = nullptr;

void write(const char* text) {
  DWORD written = 0;
  WriteFile(GetStdHandle(STD_ERROR_HANDLE), text, static_cast<DWORD>(std::strlen(text)), &written,
            nullptr);
}

// Runs on a thread of its own; the next handler ends the program.
BOOL WINAPI announceInterruption(DWORD) {
  if (const char* const line = announced.load()) {
    write(line);
    write("\r\n");
  }
  return FALSE;
}

}  // namespace

void announce(const char* line) noexcept {
  announced = line;
  if (line == nullptr) return;
  static const bool isInstalled = SetConsoleCtrlHandler(announceInterruption, TRUE) != 0;
  static_cast<void>(isInstalled);
}

}  // namespace ktpnaips::interruption
