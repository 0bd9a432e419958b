#include <ktpnaips/platform/text.h>

#include <windows.h>

#include <algorithm>
#include <cstddef>

namespace ktpnaips::text {

std::wstring toUpper(std::wstring_view text) {
  constexpr std::size_t longestPiece = 1U << 30U;  // the system counts in 32 bits
  std::wstring upper(text);
  for (std::size_t at = 0; at < upper.size(); at += longestPiece) {
    const auto size = static_cast<int>(std::min(longestPiece, upper.size() - at));
    LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, text.data() + at, size, upper.data() + at,
                  size, nullptr, nullptr, 0);
  }
  return upper;
}

}  // namespace ktpnaips::text
