#pragma once

#include <cstdint>
#include <string_view>

namespace ktpnaips {

/// The number at the start of the text, whatever the locale: behind spaces, tabs and line feeds an
/// optional sign, then digits with one point at most. It ends at the first character that does not
/// fit, so it has no exponent. Text that does not start with a number gives 0. Throws fault 6 for a
/// number that is too large.
double leadingNumber(std::wstring_view text);

/// The nearest 16-bit integer, halves to the even neighbour. Throws fault 6 beyond its range.
std::int16_t toInt16(double value);

}  // namespace ktpnaips
