#include <ktpnaips/platform/files.h>
#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace ktpnaips::files {
namespace {

/// True for the names that stand for devices, in every folder and with every extension.
bool isDevice(std::wstring_view name) {
  std::wstring_view base = name.substr(0, name.find(L'.'));
  base = base.substr(0, base.find_last_not_of(L' ') + 1);
  const std::wstring upper = text::toUpper(base);
  constexpr std::array whole{L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"};
  if (std::ranges::find(whole, upper) != whole.end()) return true;
  const bool isNumbered =
      upper.size() == 4 && (upper.starts_with(L"COM") || upper.starts_with(L"LPT"));
  constexpr std::wstring_view numbers = L"123456789\u00B9\u00B2\u00B3";
  return isNumbered && numbers.find(upper.back()) != std::wstring_view::npos;
}

bool canStandInName(wchar_t c) {
  constexpr std::wstring_view reserved = L"<>:\"/\\|?*";
  return static_cast<std::uint32_t>(c) >= L' ' && reserved.find(c) == std::wstring_view::npos;
}

}  // namespace

bool isPlainName(std::wstring_view name) {
  return !name.empty() && name != L"." && name != L".." &&
         std::ranges::all_of(name, canStandInName) && !isDevice(name);
}

}  // namespace ktpnaips::files
