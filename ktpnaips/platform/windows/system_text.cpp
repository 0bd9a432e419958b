#include <ktpnaips/platform/windows/system_text.h>

#include <array>

namespace ktpnaips {

std::wstring systemText(DWORD sources, HMODULE module, DWORD code) {
  std::array<char, 260> buffer{};
  const DWORD length = FormatMessageA(sources | FORMAT_MESSAGE_IGNORE_INSERTS, module, code, 0,
                                      buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
  return fromAnsi({buffer.data(), length});
}

std::wstring fromAnsi(std::string_view text) {
  const auto size = static_cast<int>(text.size());
  if (size == 0) return {};
  std::wstring wide(text.size(), L'\0');
  const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

std::string toAnsi(std::wstring_view text) {
  const auto size = static_cast<int>(text.size());
  if (size == 0) return {};
  const int length =
      WideCharToMultiByte(CP_ACP, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string ansi(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), size, ansi.data(), length, nullptr, nullptr);
  return ansi;
}

}  // namespace ktpnaips
