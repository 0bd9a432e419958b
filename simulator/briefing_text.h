#pragma once

#include <chrono>
#include <set>
#include <string>
#include <string_view>

#include "simulator/briefing_period.h"
#include "simulator/data/areas.h"
#include "simulator/data/locations.h"

namespace sim {

// The text of a briefing as it grows, lines ended by LF.
class BriefingText {
 public:
  BriefingText(std::string_view title, const Call& call, BriefingPeriod period);

  void heading(std::string_view text);     // underlined
  void subheading(std::string_view text);  // "TERMINAL AERODROME FORECAST"
  // A message, or "NIL" when it is empty, indented by two blanks.
  void message(std::string_view text);

  // Forecast and report of an aerodrome.
  void weather(const Location& location);

  // The NOTAMs of a location or flight information region that touch the period.
  void notams(std::string_view code);
  void headOfficeNotams();
  // SIGMET of each region, once in the whole briefing.
  void sigmets(const std::set<std::string_view>& regions);

  std::string take();  // with its last line

  const BriefingPeriod& period() const { return period_; }
  std::chrono::sys_seconds now() const { return now_; }

 private:
  BriefingPeriod period_;
  std::chrono::sys_seconds now_;
  std::string text_;
};

}  // namespace sim
