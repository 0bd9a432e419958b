#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/pattern.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <chrono>
#include <cstddef>

namespace ktpnaips {
namespace {

using std::chrono::days;
using std::chrono::floor;
using std::chrono::hh_mm_ss;
using std::chrono::hours;
using std::chrono::local_days;
using std::chrono::minutes;
using std::chrono::months;
using std::chrono::seconds;
using std::chrono::year;
using std::chrono::year_month_day;

int number(std::wstring_view digits) {
  int value = 0;
  for (const wchar_t digit : digits) value = value * 10 + static_cast<int>(digit - L'0');
  return value;
}

/// The date of a month and a day that may lie outside their ranges.
local_days rolledDate(int yearNumber, int month, int day) {
  const auto firstOfMonth = year{yearNumber} / 1 / 1 + months{month - 1};
  return local_days{firstOfMonth} + days{day - 1};
}

std::wstring withSingleSpaces(std::wstring_view text) {
  std::wstring result;
  result.reserve(text.size());
  for (const wchar_t c : text) {
    if (c != L' ' || result.empty() || result.back() != L' ') result += c;
  }
  return result;
}

}  // namespace

std::wstring_view trimSpaces(std::wstring_view text) {
  const auto first = text.find_first_not_of(L' ');
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

std::wstring decimal(std::int64_t number, int digits) {
  const std::string magnitude = std::to_string(number < 0 ? -number : number);
  std::wstring text = number < 0 ? L"-" : L"";
  text.append(std::max(static_cast<std::size_t>(digits), magnitude.size()) - magnitude.size(),
              L'0');
  return text.append(magnitude.begin(), magnitude.end());
}

std::wstring isoDate(DateTime value) {
  const year_month_day date{floor<days>(value)};
  return decimal(static_cast<int>(date.year()), 4) + L'-' +
         decimal(static_cast<unsigned>(date.month()), 2) + L'-' +
         decimal(static_cast<unsigned>(date.day()), 2);
}

std::wstring isoDateTime(DateTime value) {
  const hh_mm_ss time{value - floor<days>(value)};
  return isoDate(value) + L'T' + decimal(time.hours().count(), 2) + L':' +
         decimal(time.minutes().count(), 2) + L':' + decimal(time.seconds().count(), 2) + L'Z';
}

namespace Utils {

std::wstring cleanString(std::wstring_view text, bool collapseSpaces) {
  return trapped<std::wstring>(inModule(L"cleanString", L"Utils"), [&](std::wstring& result) {
    const std::wstring upper = text::toUpper(trimSpaces(text));
    result = collapseSpaces ? withSingleSpaces(upper) : upper;
  });
}

std::wstring lfToCrLf(std::wstring_view text) {
  return trapped<std::wstring>(inModule(L"lfToCrLf", L"Utils"), [&](std::wstring& result) {
    std::wstring converted;
    converted.reserve(text.size());
    wchar_t previous = L'\0';
    for (const wchar_t c : text) {
      if (c == L'\n' && previous != L'\r') converted += L'\r';
      converted += c;
      previous = c;
    }
    result = std::move(converted);
  });
}

std::wstring minutesToDuration(std::int16_t minutes) {
  return trapped<std::wstring>(inModule(L"minutesToDuration", L"Utils"), [&](std::wstring& result) {
    result = L"PT" + decimal(minutes / 60, 2) + L'H' + decimal(minutes % 60, 2) + L'M';
  });
}

}  // namespace Utils

namespace Utilities {

DateTime convertISODateTime(std::wstring_view text) {
  static const Pattern isoText(
      L"^([0-9]{4})-([0-9]{2})-([0-9]{2})(?:T([0-9]{2}):([0-9]{2}):([0-9]{2}))?");
  DateTime result = zeroDateTime;
  trapped(inModule(L"convertISODateTime", L"Utilities"), [&] {
    const auto upper = text::toUpper(text);
    const auto parts = isoText.search(trimSpaces(upper));
    if (parts.empty()) {
      result = noDateTime;
      return;
    }
    result = rolledDate(number(parts[1]), number(parts[2]), number(parts[3])) +
             hours{number(parts[4])} + minutes{number(parts[5])} + seconds{number(parts[6])};
  });
  return result;
}

}  // namespace Utilities
}  // namespace ktpnaips
