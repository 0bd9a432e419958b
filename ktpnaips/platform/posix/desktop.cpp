#include <ktpnaips/platform/desktop.h>
#include <ktpnaips/platform/text.h>

#include <cstdio>

namespace ktpnaips::desktop {

void showMessage(std::wstring_view text) noexcept {
  try {
    const std::string line = text::toUtf8(text) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
  } catch (...) {
    std::fputs("Out of memory\n", stderr);
  }
}

}  // namespace ktpnaips::desktop
