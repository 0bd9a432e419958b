#pragma once

#include <cstdint>
#include <string_view>

namespace ktpnaips {

/// The number at the start of the text, whatever the locale: spaces, tabs and line feeds are
/// skipped, the decimal separator is a point, the exponent starts with E or D. Text that does not
/// start with a number gives 0. Throws fault 6 for a number that is too large.
double leadingNumber(std::wstring_view text);

/// The nearest 16-bit integer, halves to the even neighbour. Throws fault 6 beyond its range.
std::int16_t toInt16(double value);

}  // namespace ktpnaips
