#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ktpnaips::xml {

/// The text with a U+FFFD for each character that XML 1.0 does not allow; nothing when it has none.
std::optional<std::wstring> withoutForbidden(std::wstring_view text);

}  // namespace ktpnaips::xml
