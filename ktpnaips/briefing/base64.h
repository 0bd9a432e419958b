#pragma once

#include <string>
#include <string_view>

/// The lenient Base64 decoder of product files.
namespace ktpnaips::Enc64 {

/// Decodes Base64 text to bytes. CR and LF are ignored; every other character counts, and one that
/// Base64 does not have decodes as zero bits. "==" anywhere cuts two bytes from the end, "=" one.
/// Throws fault -2147221504 when the length is no multiple of 4, fault 9 when nothing is left.
std::string MyDecode(std::wstring_view text);
/// The same for UTF-8 text; lengths count characters.
std::string MyDecode(std::string_view utf8);

}  // namespace ktpnaips::Enc64
