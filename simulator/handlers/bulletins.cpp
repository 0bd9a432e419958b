#include <charconv>
#include <chrono>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simulator/briefing_period.h"
#include "simulator/bulletin_text.h"
#include "simulator/data/routes.h"
#include "simulator/product.h"
#include "simulator/refusals.h"
#include "simulator/registry.h"

namespace sim::handlers {
namespace {

constexpr int defaultHours = 24;

// From "PT06H", "PT6H" or "6".
int hoursFrom(const std::string& duration) {
  const std::size_t first = duration.starts_with("PT") ? 2 : 0;
  int hours = 0;
  std::from_chars(duration.data() + first, duration.data() + duration.size(), hours);
  return hours;
}

// The period begins now unless the request gives one; it ends with it or after the duration, of
// which the bulletin's own comes last.
void setPeriod(Bulletin& bulletin, const Call& call, int hours) {
  bulletin.updated = call.now;
  bulletin.from = call.now;
  bulletin.hours = hours;
  if (call.request.has("period")) {
    const BriefingPeriod period = briefingPeriod(call);
    bulletin.from = period.from;
    bulletin.hours =
        std::chrono::ceil<std::chrono::duration<int, std::ratio<3600>>>(period.till - period.from)
            .count();
  }
  const std::vector<std::string> durations = call.request.childTexts("duration");
  if (!durations.empty()) {
    bulletin.hours = hoursFrom(durations.back());
  }
}

void refuseUnknownRoute(const BulletinStage& stage) {
  if (!stage.route.code.empty() &&
      findRoute(stage.departure.text, stage.destination.text, stage.route.code) == nullptr) {
    throw Refusal("Unknown route: " + stage.departure.text + ' ' + stage.destination.text + ' ' +
                  stage.route.code);
  }
}

void checkSpec(const BulletinSpec& spec, TimePoint now) {
  refuseWithoutStages(spec.stages.size());
  refuseWithoutAircraft(spec.aircraft);
  for (const BulletinStage& stage : spec.stages) {
    refuseUnknown(stage.departure);
    refuseUnknown(stage.destination);
    if (stage.alternate) {
      refuseUnknown(stage.alternate->destination);
    }
    refusePastDeparture(stage.etd, now);
    refuseUnknownRoute(stage);
  }
}

void answerBulletin(const Bulletin& bulletin, const Call& call, const std::vector<bool>& included,
                    Element& answer, ChartStore& charts) {
  const BulletinSpec& spec = bulletin.spec;
  answer.add("content", bulletinText(bulletin, call, included));
  addBriefingCharts(answer, charts, {spec.charts, spec.midLevelCharts, spec.high, bulletin.from});
}

void requestBulletin(const Call& call, Element& answer, State& state) {
  Bulletin bulletin;
  bulletin.owner = call.account.user;
  bulletin.group = requestedGroup(call, state);
  bulletin.spec = bulletinSpec(*call.request.child("spfib"));
  setPeriod(bulletin, call, defaultHours);
  if (state.strict) {
    checkSpec(bulletin.spec, call.now);
  }
  const std::vector<bool> all(bulletin.spec.stages.size(), true);
  answerBulletin(state.bulletins.add(std::move(bulletin)), call, all, answer, state.charts);
}

Bulletin& requestedBulletin(const Call& call, State& state) {
  const std::string number = call.request.childText("number");
  Bulletin* bulletin = state.bulletins.find(number, call.account);
  if (bulletin == nullptr) {
    throw Refusal("No bulletin " + number + " is held for you");
  }
  return *bulletin;
}

void updateBulletin(const Call& call, Element& answer, State& state) {
  Bulletin& held = requestedBulletin(call, state);
  std::vector<bool> included;
  for (const XmlView& stage : call.request.children("stage")) {
    included.push_back(stage.flag("include"));
  }
  if (state.strict && included.size() > held.spec.stages.size()) {
    throw Refusal("Bulletin " + held.number + " has fewer stages");
  }
  Bulletin updated = held;
  setPeriod(updated, call, held.hours);
  held = std::move(updated);
  answerBulletin(held, call, included, answer, state.charts);
}

void addFlag(Element& parent, const char* name, bool on) {
  parent.add(name, on ? "true" : "false");
}

void addRoute(Element& parent, const BulletinRoute& route) {
  if (!route.code.empty()) {
    parent.add("route").add("route-id", route.code);
  } else if (!route.points.empty()) {
    Element& element = parent.add("route");
    for (const Place& point : route.points) {
      element.add("waypoints").add("loc", point.text);
    }
  }
}

void addStage(Element& parent, const BulletinStage& stage) {
  Element& element = parent.add("stage");
  element.add("adep").add("loc", stage.departure.text);
  element.add("etd", isoDateTime(stage.etd));
  element.add("ades").add("loc", stage.destination.text);
  if (!stage.weightCategory.empty()) {
    element.add("weight-category", stage.weightCategory);
  }
  element.add("level", stage.level);
  addRoute(element, stage.route);
  for (const std::string& location : stage.additionalLocations) {
    element.add("additional-loc", location);
  }
  for (const std::string& area : stage.areas) {
    element.add("area", area);
  }
  if (stage.alternate) {
    Element& alternate = element.add("alternate");
    alternate.add("ades").add("loc", stage.alternate->destination.text);
    alternate.add("level", stage.alternate->level);
    addRoute(alternate, stage.alternate->route);
  }
}

void getBulletin(const Call& call, Element& answer, State& state) {
  const Bulletin& bulletin = requestedBulletin(call, state);
  const BulletinSpec& spec = bulletin.spec;
  answer.add("number", bulletin.number);
  answer.add("duration", "PT" + std::to_string(bulletin.hours) + "H");
  Element& element = answer.add("spfib");
  addFlag(element, "domestic", spec.domestic);
  element.add("acid", spec.aircraft);
  for (const BulletinStage& stage : spec.stages) {
    addStage(element, stage);
  }
  element.add("tas", spec.trueAirspeed);
  addFlag(element, "exp-wind", spec.winds);
  addFlag(element, "intl-series-notam", spec.generalNotams);
  addFlag(element, "full-text-notam", spec.fullTextNotams);
  addFlag(element, "charts", spec.charts);
  addFlag(element, "mid-sigwx-gpwt", spec.midLevelCharts);
  element.add("variant", spec.high ? "HI" : "LO");
}

void listBulletins(const Call& call, Element& answer, State& state) {
  for (const Bulletin* bulletin :
       state.bulletins.list(call.account.user, requestedGroup(call, state))) {
    Element& entry = answer.add("spfib");
    entry.add("number", bulletin->number);
    entry.add("acid", bulletin->spec.aircraft);
    entry.add("dtg", isoDateTime(bulletin->updated));
  }
}

void listNotams(const Call& call, Element& answer, State& state) {
  const Bulletin& bulletin = requestedBulletin(call, state);
  answer.add("spfib", bulletin.number);
  for (const Notam* notam : notamsOf(bulletin)) {
    Element& entry = answer.add("notam");
    entry.add("notamKey", notam->key);
    Element& id = entry.add("notamId");
    id.add("loc").add("id", notam->location);
    Element& number = id.add("number");
    number.add("series-id", notam->series);
    number.add("number", std::to_string(notam->number));
    number.add("year", std::to_string(notam->year));
    entry.add("summary", notam->summary);
  }
}

// A fresh service holds this one, so that there is something to list, get and update.
Bulletin standingBulletin(const State& state) {
  BulletinStage stage;
  stage.departure = placeNamed("YSSY");
  stage.etd = state.now() + std::chrono::hours(2);
  stage.destination = placeNamed("YMML");
  stage.weightCategory = "M";
  stage.level = "F350";
  stage.route.code = "A1";
  stage.additionalLocations = {"YSCB"};
  stage.alternate = BulletinAlternate{placeNamed("YMAV"), "F120", {}};
  Bulletin bulletin;
  bulletin.owner = demoAccount().user;
  bulletin.group = demoAccount().groups.front().name;
  bulletin.updated = bulletin.from = state.now();
  bulletin.hours = defaultHours;
  bulletin.spec.domestic = bulletin.spec.winds = true;
  bulletin.spec.aircraft = "VHNSM";
  bulletin.spec.trueAirspeed = "N0440";
  bulletin.spec.stages.push_back(std::move(stage));
  return bulletin;
}

}  // namespace

void bulletins(Registry& registry, State& state) {
  state.bulletins.add(standingBulletin(state));
  const auto add = [&](const char* element, void (*handle)(const Call&, Element&, State&)) {
    registry.add(element, Endpoint::briefing, [handle, &state](const Call& call, Element& answer) {
      handle(call, answer, state);
    });
  };
  add("spfib-rqs", requestBulletin);
  add("update-spfib-rqs", updateBulletin);
  add("get-spfib-rqs", getBulletin);
  add("active-spfib-dir-rqs", listBulletins);
  add("view-notam-list-for-spfib-rqs", listNotams);
}

}  // namespace sim::handlers
