#pragma once

#include <string>
#include <string_view>

namespace ktpnaips::xml {

inline constexpr std::wstring_view doctypeRefused = L"a document type declaration is not accepted";

/// Why a text must not be given to an XML parser at all, or an empty text: a document type
/// declaration (entities), an element with attributes by the thousand (parsers compare each with
/// each), "--" inside a comment (libxml2 copies the comment for each), a NUL character (at which
/// parsers stop reading), more than 2 GB.
std::wstring refusalBeforeParsing(std::string_view text);

}  // namespace ktpnaips::xml
