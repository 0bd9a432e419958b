#pragma once

#include <windows.h>

#include <string>
#include <string_view>

/// Text of the system, which speaks its ANSI code page where the library asks it so.
namespace ktpnaips {

/// The message of a code, with any line end that it carries; empty when there is none. `sources`
/// are the FORMAT_MESSAGE_FROM flags, `module` is where FORMAT_MESSAGE_FROM_HMODULE looks.
std::wstring systemText(DWORD sources, HMODULE module, DWORD code);

std::wstring fromAnsi(std::string_view text);
/// What the code page cannot hold becomes its substitute, as a rule "?".
std::string toAnsi(std::wstring_view text);

}  // namespace ktpnaips
