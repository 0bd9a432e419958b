#pragma once

#include <ktpnaips/core/trap.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace ktpnaips {

/// How many characters at the start of the text, which is not empty, are a designator; 0: none is.
using DesignatorLength = std::size_t (*)(std::wstring_view text);

/// The designators in the trimmed and upper-cased text, left to right without overlap, separated by
/// single spaces; everything between them is dropped. An unexpected failure is reported as one of
/// `procedure` and gives an empty text.
std::wstring designatorList(const Procedure& procedure, DesignatorLength lengthAtStart,
                            std::wstring_view text);

/// Letters that are designators: alone, or only with a digit from 1 to `last` behind them.
struct DesignatorLetters {
  std::wstring_view letters;
  wchar_t last = L'\0';  ///< none: alone
};

/// The length of the designator at the start of the text, for a `DesignatorLength`.
std::size_t designatorLength(std::span<const DesignatorLetters> designators,
                             std::wstring_view text);

}  // namespace ktpnaips
