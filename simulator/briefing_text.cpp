#include "simulator/briefing_text.h"

#include <utility>
#include <vector>

#include "simulator/data/notams.h"
#include "simulator/data/time.h"
#include "simulator/data/weather.h"

namespace sim {
namespace {

std::string utc(std::chrono::sys_seconds time) {
  return isoDate(time) + ' ' + dayHourMinute(time).substr(2) + " UTC";
}

}  // namespace

BriefingText::BriefingText(std::string_view title, const Call& call, BriefingPeriod period)
    : period_(period), now_(call.now) {
  text_.append(title).append("\nPREPARED ").append(utc(now_));
  text_.append(" FOR ").append(call.account.user).append("\nVALID FROM ");
  text_.append(utc(period.from)).append(" TO ").append(utc(period.till)).append("\n");
}

void BriefingText::heading(std::string_view text) {
  text_.append("\n").append(text).append("\n").append(text.size(), '-').append("\n");
}

void BriefingText::subheading(std::string_view text) {
  text_.append(text).append("\n");
}

void BriefingText::message(std::string_view text) {
  if (text.empty()) {
    text = "NIL";
  }
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text_.append("  ").append(line).append("\n");
    text.remove_prefix(line.size() < text.size() ? line.size() + 1 : line.size());
  }
}

void BriefingText::weather(const Location& location) {
  subheading("AERODROME FORECAST");
  message(taf(location, period_.from, period_.till));
  subheading("AERODROME REPORT");
  message(metar(location, now_));
}

void BriefingText::notams(std::string_view code) {
  subheading("NOTAM " + std::string(code));
  bool any = false;
  for (const Notam* notam : notamsFor(code)) {
    if (notam->from < period_.till && notam->till > period_.from) {
      message(notam->text);
      any = true;
    }
  }
  if (!any) {
    message("");
  }
}

void BriefingText::headOfficeNotams() {
  heading("HEAD OFFICE NOTAM");
  for (const Notam* notam : sim::headOfficeNotams()) {
    message(notam->text);
  }
}

void BriefingText::sigmets(const std::set<std::string_view>& regions) {
  heading("SIGMET");
  for (const std::string_view region : regions) {
    message(sigmet(region, now_));
  }
}

std::string BriefingText::take() {
  text_.append("\nEND OF BRIEFING\n");
  return std::move(text_);
}

}  // namespace sim
