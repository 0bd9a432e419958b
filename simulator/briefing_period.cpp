#include "simulator/briefing_period.h"

#include <charconv>
#include <optional>
#include <string>
#include <string_view>

namespace sim {
namespace {

int numberAt(std::string_view text, std::size_t position, std::size_t length) {
  int value = 0;
  const std::string_view digits = text.substr(position, length);
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

}  // namespace

BriefingPeriod briefingPeriod(const Call& call) {
  BriefingPeriod result{call.now, call.now + std::chrono::hours(24)};
  if (const std::optional<XmlView> period = call.request.child("period")) {
    result = {dateTimeOf(period->childText("from")), dateTimeOf(period->childText("till"))};
  } else if (call.request.has("duration")) {
    const std::string hours = call.request.childText("duration");  // "PT06H"
    result.till = call.now + std::chrono::hours(numberAt(hours, 2, 2));
  }
  if (result.till <= result.from) {
    throw Refusal("The briefing period ends before it begins");
  }
  return result;
}

std::chrono::sys_seconds dateTimeOf(const std::string& text) {
  using namespace std::chrono;
  const year_month_day date(year(numberAt(text, 0, 4)),
                            month(static_cast<unsigned>(numberAt(text, 5, 2))),
                            day(static_cast<unsigned>(numberAt(text, 8, 2))));
  return sys_days(date) + hours(numberAt(text, 11, 2)) + minutes(numberAt(text, 14, 2)) +
         seconds(numberAt(text, 17, 2));
}

}  // namespace sim
