#include <ktpnaips/core/numbers.h>

#include <ktpnaips/platform/runtime_fault.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

namespace ktpnaips {
namespace {

/// The sign and the digits, with one point at most, at the start of the text behind its blanks.
std::string numberCharacters(std::wstring_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(L" \t\n"), text.size()));
  std::string characters;
  for (const wchar_t c : text) {
    const bool isSign = (c == L'-' || c == L'+') && characters.empty();
    const bool isPoint = c == L'.' && characters.find('.') == std::string::npos;
    if (!isSign && !isPoint && (c < L'0' || c > L'9')) break;
    characters += static_cast<char>(c);
  }
  return characters;
}

/// Tells a number that is too large for its type from one that is too small.
bool isLarge(std::string_view number) {
  return number.find_first_of("123456789") < number.find('.');
}

}  // namespace

double leadingNumber(std::wstring_view text) {
  const std::string characters = numberCharacters(text);
  std::string_view number = characters;
  if (number.starts_with('+')) number.remove_prefix(1);
  double value = 0;
  const auto error = std::from_chars(number.data(), number.data() + number.size(), value).ec;
  if (error == std::errc::result_out_of_range && isLarge(number))
    throw RuntimeFault(fault::overflow);
  return error == std::errc() ? value : 0;
}

std::int16_t toInt16(double value) {
  using Limits = std::numeric_limits<std::int16_t>;
  const double rounded = value - std::remainder(value, 1.0);
  if (!(rounded >= Limits::min() && rounded <= Limits::max())) throw RuntimeFault(fault::overflow);
  return static_cast<std::int16_t>(rounded);
}

}  // namespace ktpnaips
