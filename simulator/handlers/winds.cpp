#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "simulator/briefing_period.h"
#include "simulator/briefing_text.h"
#include "simulator/data/text.h"
#include "simulator/refusals.h"
#include "simulator/registry.h"
#include "simulator/track.h"

namespace sim::handlers {
namespace {

constexpr int levels[] = {20, 50, 100, 140, 185, 235, 300, 340, 390};
constexpr std::size_t nameWidth = 13;
constexpr std::size_t columnWidth = 11;

struct Stage {
  Place departure;
  Place destination;
  TimePoint etd;
  std::string route;
};

std::vector<Stage> stagesIn(const XmlView& request) {
  std::vector<Stage> stages;
  for (const XmlView& stage : request.children("stage")) {
    stages.push_back({placeNamed(stage.childText("adep")), placeNamed(stage.childText("ades")),
                      dateTimeOf(stage.childText("etd")), stage.childText("route")});
  }
  return stages;
}

void check(const std::vector<Stage>& stages, TimePoint now) {
  refuseWithoutStages(stages.size());
  for (const Stage& stage : stages) {
    refuseUnknown(stage.departure);
    refuseUnknown(stage.destination);
    refusePastDeparture(stage.etd, now);
  }
}

std::vector<Fix> fixesOf(const Stage& stage, double speedKt) {
  std::vector<Place> places{stage.departure};
  for (const std::string_view name : words(stage.route)) {
    places.push_back(placeNamed(name));
  }
  places.push_back(stage.destination);
  return track(places, stage.etd, speedKt);
}

std::string column(std::string text, std::size_t width) {
  text.resize(std::max(width, text.size() + 1), ' ');
  return text;
}

std::string levelName(int level) {
  return (level < 100 ? "A0" : "FL") + std::to_string(level);
}

std::string header() {
  std::string line = column("", nameWidth) + column("UTC", columnWidth - 3);
  for (const int level : levels) {
    line += column(levelName(level), columnWidth);
  }
  return line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
}

std::string row(const Fix& fix) {
  std::string line = column(fix.name, nameWidth) + column(dayHourMinute(fix.time), columnWidth - 3);
  for (const int level : levels) {
    line += column(windText(windAt(fix.position.latitude, fix.position.longitude, level, fix.time)),
                   columnWidth);
  }
  return line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
}

// From the first departure to the last arrival; a day from now without any.
BriefingPeriod periodOf(const std::vector<Stage>& stages, double speedKt, const Call& call) {
  BriefingPeriod period = briefingPeriod(call);
  bool first = true;
  for (const Stage& stage : stages) {
    const std::vector<Fix> fixes = fixesOf(stage, speedKt);
    const TimePoint end = fixes.empty() ? stage.etd : fixes.back().time;
    period = first ? BriefingPeriod{stage.etd, end}
                   : BriefingPeriod{std::min(period.from, stage.etd), std::max(period.till, end)};
    first = false;
  }
  return period;
}

void windProfile(const Call& call, Element& answer, const State& state) {
  const std::vector<Stage> stages = stagesIn(call.request);
  if (state.strict) {
    check(stages, call.now);
  }
  const std::string trueAirspeed = call.request.childText("tas");
  const double speed = speedInKnots(trueAirspeed);
  BriefingText text("WIND AND TEMPERATURE PROFILE", call, periodOf(stages, speed, call));
  for (const Stage& stage : stages) {
    text.heading(stage.departure.text + " TO " + stage.destination.text + "  ETD " +
                 isoDateTime(stage.etd) + "  TAS " + trueAirspeed);
    std::string table = header();
    for (const Fix& fix : fixesOf(stage, speed)) {
      table += row(fix);
    }
    text.message(table);
  }
  answer.add("content", text.take());
}

}  // namespace

void winds(Registry& registry, State& state) {
  registry.add("wind-temp-profile-rqs", Endpoint::briefing,
               [&state](const Call& call, Element& answer) { windProfile(call, answer, state); });
}

}  // namespace sim::handlers
