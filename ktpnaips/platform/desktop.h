#pragma once

#include <string_view>

namespace ktpnaips::desktop {

/// Shows a text to the person: a modal message box with an OK button and the default title on
/// Windows, a line on standard error elsewhere.
void showMessage(std::wstring_view text) noexcept;

}  // namespace ktpnaips::desktop
