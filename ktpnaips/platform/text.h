#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text conversions that need the platform's knowledge of characters.
namespace ktpnaips::text {

/// Upper case, character by character, whatever the locale; the length never changes.
std::wstring toUpper(std::wstring_view text);

/// What cannot be represented becomes U+FFFD.
std::string toUtf8(std::wstring_view text);
/// Bytes that are not UTF-8 become U+FFFD, one for each.
std::wstring fromUtf8(std::string_view text);

/// The first `units` UTF-16 units of the text; a character that would be cut in half is left out.
std::wstring_view firstUnits(std::wstring_view text, std::size_t units);

}  // namespace ktpnaips::text
