#include <ktpnaips/core/conversions.h>
#include <ktpnaips/platform/text.h>

#include <array>

#include "fuzzing.h"

/// Date-times of answers against a reading by hand and arithmetic on whole days.
namespace {

using ktpnaips::DateTime;

/// The number that the digits at these places give, or -1.
int numberAt(std::wstring_view text, std::size_t at, std::size_t digits) {
  int value = 0;
  for (std::size_t i = at; i < at + digits; ++i) {
    if (i >= text.size() || text[i] < L'0' || text[i] > L'9') return -1;
    value = value * 10 + static_cast<int>(text[i] - L'0');
  }
  return value;
}

bool has(std::wstring_view text, std::size_t at, std::wstring_view anyOf) {
  return at < text.size() && anyOf.find(text[at]) != std::wstring_view::npos;
}

bool isLeap(int year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

/// Days from 1970-01-01 to the first of a month of 0 to 99 of a year of 0 to 9999.
int daysTo(int year, int month) {
  constexpr std::array lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  year += (month + 11) / 12 - 1;
  month = (month + 11) % 12;
  const int before = year - 1;  // whole years since the year 1, which may be none
  const auto quotient = [&](int by) { return before >= 0 ? before / by : -1 - (-1 - before) / by; };
  int days = before * 365 + quotient(4) - quotient(100) + quotient(400) - 719162;
  for (int each = 0; each < month; ++each) {
    days += lengths.at(static_cast<std::size_t>(each)) + (each == 1 && isLeap(year) ? 1 : 0);
  }
  return days;
}

DateTime plainly(std::wstring_view text) {
  while (text.starts_with(L' ')) text.remove_prefix(1);
  const int year = numberAt(text, 0, 4);
  const int month = numberAt(text, 5, 2);
  const int day = numberAt(text, 8, 2);
  if (year < 0 || !has(text, 4, L"-") || month < 0 || !has(text, 7, L"-") || day < 0) {
    return ktpnaips::noDateTime;
  }
  const std::chrono::seconds midnight{(daysTo(year, month) + day - 1) * std::int64_t{86400}};
  const int hour = numberAt(text, 11, 2);
  const int minute = numberAt(text, 14, 2);
  const int second = numberAt(text, 17, 2);
  const bool hasTime = has(text, 10, L"Tt") && hour >= 0 && has(text, 13, L":") && minute >= 0 &&
                       has(text, 16, L":") && second >= 0;
  return DateTime{midnight +
                  std::chrono::seconds{hasTime ? hour * 3600 + minute * 60 + second : 0}};
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using ktpnaips::Utilities::convertISODateTime;
  const std::wstring text = ktpnaips::text::fromUtf8(fuzz::Input(data, size).rest());
  const DateTime value = convertISODateTime(text);
  fuzz::require(value == plainly(text), "a date-time reads as by hand");
  const std::wstring written = ktpnaips::isoDateTime(value);
  const bool isWritable = written.size() == std::wstring_view(L"0000-00-00T00:00:00Z").size();
  fuzz::require(!isWritable || written.starts_with(L'-') || convertISODateTime(written) == value,
                "a date-time that is written reads back");
  return 0;
}
