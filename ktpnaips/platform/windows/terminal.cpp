#include <ktpnaips/platform/terminal.h>

#include <ktpnaips/platform/text.h>

#include <windows.h>

#include <shellapi.h>

#include <array>
#include <cstdio>
#include <iostream>
#include <memory>

namespace ktpnaips::terminal {
namespace {

struct FreeLocally {
  void operator()(wchar_t** memory) const noexcept { LocalFree(memory); }
};

/// True, with the mode filled, when the handle is a console's.
bool isConsole(DWORD standardHandle, DWORD& mode) {
  return GetConsoleMode(GetStdHandle(standardHandle), &mode) != 0;
}

bool isConsole(DWORD standardHandle) {
  DWORD ignored = 0;
  return isConsole(standardHandle, ignored);
}

DWORD shownMode = 0;  // of the console while typed characters are shown; for a handler

/// Shows typed characters again before the program ends.
BOOL WINAPI endWithEcho(DWORD) {
  SetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), shownMode);
  return FALSE;
}

/// Keeps typed characters from being shown, for as long as it lives.
class WithoutEcho {
 public:
  WithoutEcho() {
    if (isConsole(STD_INPUT_HANDLE, shownMode)) {
      SetConsoleCtrlHandler(endWithEcho, TRUE);
      changed_ = SetConsoleMode(GetStdHandle(STD_INPUT_HANDLE),
                                shownMode & ~static_cast<DWORD>(ENABLE_ECHO_INPUT)) != 0;
    }
  }
  WithoutEcho(const WithoutEcho&) = delete;
  WithoutEcho& operator=(const WithoutEcho&) = delete;
  ~WithoutEcho() {
    if (!changed_) return;
    SetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), shownMode);
    SetConsoleCtrlHandler(endWithEcho, FALSE);
  }

 private:
  bool changed_ = false;
};

void show(const std::string& prompt) {
  if (!isConsole(STD_ERROR_HANDLE)) {
    std::fputs(prompt.c_str(), stderr);
    return;
  }
  const std::wstring wide = text::fromUtf8(prompt);
  DWORD written = 0;
  WriteConsoleW(GetStdHandle(STD_ERROR_HANDLE), wide.data(), static_cast<DWORD>(wide.size()),
                &written, nullptr);
}

std::optional<std::string> readConsoleLine() {
  std::wstring line;
  std::array<wchar_t, 512> buffer{};
  while (!line.ends_with(L'\n')) {
    DWORD length = 0;
    const BOOL done = ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), buffer.data(),
                                   static_cast<DWORD>(buffer.size()), &length, nullptr);
    if (done == 0 || length == 0) break;
    line.append(buffer.data(), length);
  }
  constexpr wchar_t endOfInput = L'\x1A';  // Ctrl+Z
  if (line.empty() || line.front() == endOfInput) return std::nullopt;
  while (line.ends_with(L'\n') || line.ends_with(L'\r')) line.pop_back();
  return text::toUtf8(line);
}

std::optional<std::string> readLine() {
  if (isConsole(STD_INPUT_HANDLE)) return readConsoleLine();
  std::string line;
  if (!std::getline(std::cin, line)) return std::nullopt;
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

}  // namespace

void keepStreamsApart() {}  // handles have no places of their own

// What main receives has been through the ANSI code page; the command line has not.
std::vector<std::string> arguments(int, char**) {
  int count = 0;
  const std::unique_ptr<wchar_t*, FreeLocally> all(CommandLineToArgvW(GetCommandLineW(), &count));
  std::vector<std::string> arguments;
  for (int i = 1; all != nullptr && i < count; ++i) {
    arguments.push_back(text::toUtf8(all.get()[i]));
  }
  return arguments;
}

bool canAsk() {
  return isConsole(STD_INPUT_HANDLE) && isConsole(STD_ERROR_HANDLE);
}

bool showsColours(Stream stream) {
  const DWORD handle = stream == Stream::output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE;
  DWORD mode = 0;
  return isConsole(handle, mode) &&
         SetConsoleMode(GetStdHandle(handle), mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

std::size_t columns() {
  CONSOLE_SCREEN_BUFFER_INFO screen{};
  if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &screen) == 0) return 0;
  return static_cast<std::size_t>(screen.srWindow.Right - screen.srWindow.Left + 1);
}

std::optional<std::string> ask(const std::string& prompt) {
  show(prompt);
  return readLine();
}

std::optional<std::string> askSecret(const std::string& prompt) {
  std::optional<std::string> line;
  {
    const WithoutEcho quiet;  // before the question, so that a quick answer is hidden
    show(prompt);
    line = readLine();
  }
  show("\n");
  return line;
}

std::optional<std::string> environment(const char* name) {
  const std::wstring wideName = text::fromUtf8(name);
  const DWORD size = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
  if (size <= 1) return std::nullopt;
  std::wstring value(size, L'\0');
  value.resize(GetEnvironmentVariableW(wideName.c_str(), value.data(), size));
  return text::toUtf8(value);
}

}  // namespace ktpnaips::terminal
