#pragma once

#include <ktpnaips/core/date_time.h>

#include <cstdint>
#include <string>
#include <string_view>

/// Conversions between the host's values and the texts of the service.
namespace ktpnaips {

namespace Utils {

/// Trims spaces (U+0020 only) at both ends and converts to upper case; with `collapseSpaces`, runs
/// of spaces inside become single ones.
std::wstring cleanString(std::wstring_view text, bool collapseSpaces = false);

/// Makes every line end CR LF; a lone CR stays.
std::wstring lfToCrLf(std::wstring_view text);

/// Minutes as a duration: 90 gives "PT01H30M".
std::wstring minutesToDuration(std::int16_t minutes);

}  // namespace Utils

namespace Utilities {

/// Reads "YYYY-MM-DD", with "Thh:mm:ss" or without, at the start of the trimmed text; anything
/// after it is ignored, other text gives `noDateTime`. Components out of range roll over.
DateTime convertISODateTime(std::wstring_view text);

}  // namespace Utilities

/// Trims spaces (U+0020 only) at both ends.
std::wstring_view trimSpaces(std::wstring_view text);

/// The number in decimal, with zeros in front up to `digits` digits and a sign only when negative.
std::wstring decimal(std::int64_t number, int digits = 1);

/// "YYYY-MM-DDThh:mm:ssZ": the value as it stands, with a literal Z.
std::wstring isoDateTime(DateTime value);

/// "YYYY-MM-DD".
std::wstring isoDate(DateTime value);

}  // namespace ktpnaips
