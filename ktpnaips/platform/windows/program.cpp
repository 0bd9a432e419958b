#include <ktpnaips/platform/program.h>

#include <ktpnaips/platform/interruption.h>
#include <ktpnaips/platform/terminal.h>
#include <ktpnaips/platform/text.h>

#include <windows.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace ktpnaips::program {
namespace {

namespace fs = std::filesystem;

struct FreeVariables {
  void operator()(wchar_t* variables) const noexcept { FreeEnvironmentStringsW(variables); }
};

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

/// Those of the environment but this one, as a process is given them.
std::wstring variablesWithout(const std::wstring& withheld) {
  const std::unique_ptr<wchar_t, FreeVariables> all(GetEnvironmentStringsW());
  std::wstring variables;
  for (const wchar_t* each = all.get(); each != nullptr && *each != L'\0';) {
    const std::wstring_view variable = each;
    if (!variable.starts_with(withheld + L'=')) variables.append(variable).push_back(L'\0');
    each += variable.size() + 1;
  }
  return variables + L'\0';
}

/// True when the process ends within the limit and before an interruption.
bool waitFor(HANDLE process, std::chrono::milliseconds limit) {
  constexpr DWORD step = 50;
  const auto end = std::chrono::steady_clock::now() + limit;
  while (WaitForSingleObject(process, step) != WAIT_OBJECT_0) {
    if (std::chrono::steady_clock::now() > end || interruption::isWaiting()) return false;
  }
  return true;
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
         std::string_view withheld, std::chrono::milliseconds limit) {
  std::wstring line;
  appendQuoted(line, program.native());
  for (const std::string& argument : arguments) {
    line += L' ';
    appendQuoted(line, text::fromUtf8(argument));
  }

  std::wstring variables = variablesWithout(text::fromUtf8(withheld));
  const Handle null(openNull());
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = start.hStdOutput = start.hStdError = null.get();
  PROCESS_INFORMATION started{};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE,
                     CREATE_UNICODE_ENVIRONMENT, variables.data(), nullptr, &start,
                     &started) == 0) {
    return false;
  }
  const Handle child(started.hProcess);
  const Handle thread(started.hThread);
  if (!waitFor(child.get(), limit)) {
    TerminateProcess(child.get(), 1);
    WaitForSingleObject(child.get(), INFINITE);
    return false;
  }
  DWORD status = 1;
  return GetExitCodeProcess(child.get(), &status) != 0 && status == 0;
}

}  // namespace ktpnaips::program
