#pragma once

#include <ktpnaips/core/pattern.h>
#include <ktpnaips/core/trap.h>

#include <string>
#include <string_view>

namespace ktpnaips {

/// The words of the trimmed and upper-cased text that the pattern matches, separated by single
/// spaces; everything between them is dropped. An unexpected failure is reported as one of
/// `procedure` and gives an empty text.
std::wstring designatorList(const Procedure& procedure, const Pattern& designator,
                            std::wstring_view text);

}  // namespace ktpnaips
