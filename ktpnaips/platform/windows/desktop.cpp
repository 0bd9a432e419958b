#include <ktpnaips/platform/desktop.h>
#include <ktpnaips/platform/text.h>

#include <windows.h>

#include <cstdio>
#include <exception>
#include <string>

namespace ktpnaips::desktop {
namespace {

/// False for services and the like: nobody could ever press the button.
bool someoneCanSee() {
  USEROBJECTFLAGS flags{};
  const BOOL known = GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags,
                                               sizeof flags, nullptr);
  return known == 0 || (flags.dwFlags & WSF_VISIBLE) != 0;
}

}  // namespace

void showMessage(std::wstring_view text) noexcept {
  try {
    const std::wstring message(text);
    if (someoneCanSee() && MessageBoxW(nullptr, message.c_str(), nullptr, MB_OK) > 0) return;
    const std::string line = text::toUtf8(text) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
  } catch (const std::exception&) {
    std::fputs("Out of memory\n", stderr);
  }
}

}  // namespace ktpnaips::desktop
