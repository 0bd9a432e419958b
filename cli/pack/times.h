#pragma once

#include <ktpnaips/core/date_time.h>

#include <optional>
#include <string>

/// Times as a pilot reads them, all UTC.
namespace cli::pack {

std::string timeText(ktpnaips::DateTime value);         ///< "22:00Z"
std::string dayText(ktpnaips::DateTime value);          ///< "Tue 1 Dec 2026"
std::string dayTimeText(ktpnaips::DateTime value);      ///< "Tue 1 Dec 22:00Z"
std::string weekdayTimeText(ktpnaips::DateTime value);  ///< "Tue 22:00Z"
std::string dateText(ktpnaips::DateTime value);         ///< "2026-12-01"
std::string durationText(double minutes);               ///< "2 h 05 min"

/// Reads "YYYY-MM-DDThh:mm[:ss][Z]"; nothing for other text.
std::optional<ktpnaips::DateTime> readTime(const std::string& text);

}  // namespace cli::pack
