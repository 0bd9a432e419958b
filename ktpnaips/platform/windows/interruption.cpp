#include <ktpnaips/platform/interruption.h>

#include <windows.h>

#include <atomic>
#include <cstring>

namespace ktpnaips::interruption {
namespace {

std::atomic<const char*> announced = nullptr;
std::atomic<const wchar_t*> removed = nullptr;
std::atomic<bool> isPostponed = false;
std::atomic<bool> isAsked = false;

constexpr UINT interruptedStatus = 0xC000013A;  // as the system's own handler ends a program

void write(const char* text) {
  DWORD written = 0;
  WriteFile(GetStdHandle(STD_ERROR_HANDLE), text, static_cast<DWORD>(std::strlen(text)), &written,
            nullptr);
}

void end() {
  if (const char* const line = announced.load()) {
    write(line);
    write("\r\n");
  }
  if (const wchar_t* const file = removed.load()) DeleteFileW(file);
}

// Runs on a thread of its own; the next handler ends the program.
BOOL WINAPI interrupted(DWORD) {
  isAsked = true;
  if (isPostponed) return TRUE;
  end();
  return FALSE;
}

void handle() {
  static const bool isInstalled = SetConsoleCtrlHandler(interrupted, TRUE) != 0;
  static_cast<void>(isInstalled);
}

}  // namespace

void announce(const char* line) noexcept {
  announced = line;
  if (line != nullptr) handle();
}

Removal::Removal(const std::filesystem::path& file) : file_(file.native()) {
  removed = file_.c_str();
  handle();
}

Removal::~Removal() {
  removed = nullptr;
}

Postponement::Postponement() noexcept {
  isPostponed = true;
  handle();
}

Postponement::~Postponement() {
  isPostponed = false;
  if (!isAsked) return;
  end();
  ExitProcess(interruptedStatus);
}

bool isWaiting() noexcept {
  return isPostponed && isAsked;
}

}  // namespace ktpnaips::interruption
