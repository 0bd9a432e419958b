#include <ktpnaips/platform/desktop.h>
#include <ktpnaips/platform/text.h>

#include <cstdint>
#include <cstdio>

namespace ktpnaips::desktop {

void showMessage(std::wstring_view text) noexcept {
  try {
    const std::string line = text::toUtf8(text) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
  } catch (...) {  // no memory for the conversion: letter by letter
    for (const wchar_t c : text)
      std::fputc(static_cast<std::uint32_t>(c) < 0x80 ? static_cast<char>(c) : '?', stderr);
    std::fputc('\n', stderr);
  }
}

}  // namespace ktpnaips::desktop
