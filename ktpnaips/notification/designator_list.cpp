#include <ktpnaips/core/conversions.h>
#include <ktpnaips/notification/designator_list.h>

#include <algorithm>

namespace ktpnaips {

std::wstring designatorList(const Procedure& procedure, DesignatorLength lengthAtStart,
                            std::wstring_view text) {
  return trapped<std::wstring>(procedure, [&](std::wstring& list) {
    const std::wstring cleaned = Utils::cleanString(text);
    std::wstring found;
    for (std::wstring_view rest = cleaned; !rest.empty();) {
      const std::size_t length = lengthAtStart(rest);
      if (length > 0) {
        if (!found.empty()) found += L' ';
        found += rest.substr(0, length);
      }
      rest.remove_prefix(std::max<std::size_t>(length, 1));
    }
    list = std::move(found);
  });
}

std::size_t designatorLength(std::span<const DesignatorLetters> designators,
                             std::wstring_view text) {
  for (const auto& [letters, last] : designators) {
    if (letters.find(text[0]) == std::wstring_view::npos) continue;
    if (last == L'\0') return 1;
    return text.size() > 1 && text[1] >= L'1' && text[1] <= last ? 2 : 0;
  }
  return 0;
}

}  // namespace ktpnaips
