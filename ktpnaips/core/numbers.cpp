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

std::from_chars_result read(std::string_view text, double& value) {
  return std::from_chars(text.data(), text.data() + text.size(), value);
}

/// The characters at the start of the text of which numbers consist, with "e" for any exponent.
std::string numberCharacters(std::wstring_view text) {
  std::string characters;
  for (const wchar_t c : text) {
    if (std::wstring_view(L" \t\n").find(c) != std::wstring_view::npos) continue;
    if (std::wstring_view(L"0123456789.+-EeDd").find(c) == std::wstring_view::npos) break;
    const bool isExponent = std::wstring_view(L"EeDd").find(c) != std::wstring_view::npos;
    characters += isExponent ? 'e' : static_cast<char>(c);
  }
  return characters;
}

double exponentOf(std::string_view number) {
  const auto start = number.find('e');
  if (start == std::string_view::npos) return 0;
  number.remove_prefix(start + 1);
  if (number.starts_with('+')) number.remove_prefix(1);
  double exponent = 0;
  if (read(number, exponent).ec == std::errc()) return exponent;
  return number.starts_with('-') ? -HUGE_VAL : HUGE_VAL;
}

/// Tells a number that is too large for its type from one that is too small.
bool isLarge(std::string_view number) {
  const auto mantissa = number.substr(0, number.find('e'));
  const auto point = std::min(mantissa.find('.'), mantissa.size());
  const auto firstDigit = mantissa.find_first_of("123456789");
  return static_cast<double>(point) - static_cast<double>(firstDigit) + exponentOf(number) > 0;
}

}  // namespace

double leadingNumber(std::wstring_view text) {
  const std::string characters = numberCharacters(text);
  std::string_view number = characters;
  if (number.starts_with("+-")) return 0;
  if (number.starts_with('+')) number.remove_prefix(1);
  double value = 0;
  const auto [end, error] = read(number, value);
  if (error == std::errc::result_out_of_range) {
    const auto used = static_cast<std::size_t>(end - number.data());
    if (isLarge(number.substr(0, used))) throw RuntimeFault(fault::overflow);
  }
  return error == std::errc() ? value : 0;
}

std::int16_t toInt16(double value) {
  using Limits = std::numeric_limits<std::int16_t>;
  const double rounded = value - std::remainder(value, 1.0);
  if (!(rounded >= Limits::min() && rounded <= Limits::max())) throw RuntimeFault(fault::overflow);
  return static_cast<std::int16_t>(rounded);
}

}  // namespace ktpnaips
