#include <ktpnaips/platform/program.h>

#include <ktpnaips/platform/terminal.h>
#include <ktpnaips/platform/text.h>

#include <windows.h>

#include <cstddef>
#include <string_view>
#include <system_error>

namespace ktpnaips::program {
namespace {

namespace fs = std::filesystem;

class Handle {
 public:
  explicit Handle(HANDLE handle) noexcept : handle_(handle) {}
  ~Handle() { CloseHandle(handle_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  [[nodiscard]] HANDLE get() const noexcept { return handle_; }

 private:
  HANDLE handle_;
};

/// The device that holds nothing and keeps nothing, for a child to inherit.
HANDLE openNull() {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  return CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                     &inherited, OPEN_EXISTING, 0, nullptr);
}

/// Appends the argument so that CommandLineToArgvW and the C runtime read it back as it stands:
/// backslashes count only in front of a quotation mark, and are doubled there.
void appendQuoted(std::wstring& line, std::wstring_view argument) {
  line += L'"';
  std::size_t backslashes = 0;
  for (const wchar_t c : argument) {
    if (c == L'\\') {
      ++backslashes;
    } else {
      if (c == L'"') line.append(backslashes + 1, L'\\');
      backslashes = 0;
    }
    line += c;
  }
  line.append(backslashes, L'\\');
  line += L'"';
}

}  // namespace

fs::path find(const std::string& name) {
  const std::wstring folders =
      text::fromUtf8(terminal::environment("PATH").value_or(std::string()));
  const std::wstring wide = text::fromUtf8(name);
  const auto search = [&](DWORD size, wchar_t* buffer) {
    return SearchPathW(folders.c_str(), wide.c_str(), L".exe", size, buffer, nullptr);
  };
  std::wstring found(search(0, nullptr), L'\0');
  found.resize(search(static_cast<DWORD>(found.size()), found.data()));
  std::error_code ignored;
  if (!fs::is_regular_file(found, ignored)) return {};
  return found;
}

bool run(const fs::path& program, const std::vector<std::string>& arguments,
         std::chrono::milliseconds limit) {
  std::wstring line;
  appendQuoted(line, program.native());
  for (const std::string& argument : arguments) {
    line += L' ';
    appendQuoted(line, text::fromUtf8(argument));
  }

  const Handle null(openNull());
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = start.hStdOutput = start.hStdError = null.get();
  PROCESS_INFORMATION started{};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                     &start, &started) == 0) {
    return false;
  }
  const Handle child(started.hProcess);
  const Handle thread(started.hThread);
  if (WaitForSingleObject(child.get(), static_cast<DWORD>(limit.count())) != WAIT_OBJECT_0) {
    TerminateProcess(child.get(), 1);
    WaitForSingleObject(child.get(), INFINITE);
    return false;
  }
  DWORD status = 1;
  return GetExitCodeProcess(child.get(), &status) != 0 && status == 0;
}

}  // namespace ktpnaips::program
