#include <string>
#include <vector>

#include "simulator/briefing_period.h"
#include "simulator/data/text.h"
#include "simulator/flight_check.h"
#include "simulator/flight_plan_text.h"
#include "simulator/refusals.h"
#include "simulator/registry.h"

namespace sim::handlers {
namespace {

void file(const Call& call, State& state, const std::string& aircraft, const std::string& route) {
  state.flights.add(
      {{}, call.account.user, requestedGroup(call, state), call.now, aircraft, route});
}

// "ZZZZ" is filed for a place without a code, told in DEP/ or DEST/, "AFIL" for a flight plan
// from the air.
void checkAerodrome(const std::string& text, bool mayBeUnnamed) {
  const std::string code = trimmedUpperCase(text);
  if (!mayBeUnnamed || (code != "ZZZZ" && code != "AFIL")) {
    refuseUnknownAerodrome(code);
  }
}

void checkStage(const XmlView& stage, const char* alternate, bool mayBeUnnamed, TimePoint now) {
  checkAerodrome(stage.childText("adep"), mayBeUnnamed);
  checkAerodrome(stage.childText("ades"), mayBeUnnamed);
  if (stage.has(alternate)) {
    checkAerodrome(stage.childText(alternate), mayBeUnnamed);
  }
  refusePastDeparture(dateTimeOf(stage.childText("etd")), now);
}

void fileFlightPlan(const Call& call, Element& answer, State& state) {
  const XmlView notification = *call.request.child("flight-notif");
  const std::vector<XmlView> stages = notification.children("stage");
  checkStageNumbers(notification);
  for (const XmlView& stage : stages) {
    checkFlightStage(stage);
  }
  requestedGroup(call, state);
  if (state.strict) {
    refuseWithoutStages(stages.size());
    for (const XmlView& stage : stages) {
      refuseWithoutAircraft(stage.childText("acid"));
      checkStage(stage, "altn", true, call.now);
    }
  }
  for (const XmlView& stage : stages) {
    file(call, state, stage.childText("acid"), routeSummary(stage));
    answer.add("fpl-text", flightPlanText(stage));
  }
}

std::string legText(const XmlView& stage) {
  std::string text = stage.childText("adep");
  for (const std::string& waypoint : stage.childTexts("waypoint")) {
    text += ' ' + waypoint;
  }
  return text + ' ' + stage.childText("ades");
}

std::string radiosText(const XmlView& radios) {
  std::string text;
  for (const char* name : {"VHF", "UHF", "elt-406-MHz"}) {
    if (radios.flag(name)) {
      text += (text.empty() ? "" : " ") + upperCase(name);
    }
  }
  return text;
}

std::string sartimeNotification(const XmlView& notification) {
  std::string text = "(SARTIME NOTIFICATION\n-" + notification.childText("acid") + ' ' +
                     notification.childText("atyp");
  for (const XmlView& stage : notification.children("stage")) {
    text += "\n-" + legText(stage) + " ETD " + dayHourMinute(dateTimeOf(stage.childText("etd")));
    if (stage.has("alt")) {
      text += " ALTN " + stage.childText("alt");
    }
  }
  if (notification.has("rmk")) {
    text += "\n-RMK/" + notification.childText("rmk");
  }
  text += "\n-" + sartimeText(*notification.child("sar"));
  if (notification.has("end")) {
    text += "\n-E/" + hoursMinutes(notification.childText("end"));
  }
  const XmlView pilot = *notification.child("pilot");
  text += "\n-P/" + notification.childText("pob");
  text += "\n-R/" + radiosText(*notification.child("radios"));
  return text + "\n-C/" + pilot.attribute("name") + ' ' + pilot.attribute("phone") + ')';
}

void checkSartime(const XmlView& notification, TimePoint now) {
  const std::vector<XmlView> stages = notification.children("stage");
  refuseWithoutStages(stages.size());
  refuseWithoutAircraft(notification.childText("acid"));
  for (const XmlView& stage : stages) {
    checkStage(stage, "alt", false, now);
  }
}

void fileSartime(const Call& call, Element& answer, State& state) {
  const XmlView notification = *call.request.child("flight-notif");
  checkStageNumbers(notification);
  requestedGroup(call, state);
  if (state.strict) {
    checkSartime(notification, call.now);
  }
  if (notification.children().empty()) {
    return;
  }
  std::string route;
  for (const XmlView& stage : notification.children("stage")) {
    route += (route.empty() ? "" : ", ") + legText(stage);
  }
  file(call, state, notification.childText("acid"), route);
  answer.add("notif-text", sartimeNotification(notification));
}

void listFlights(const Call& call, Element& answer, State& state) {
  for (const FiledFlight* flight :
       state.flights.list(call.account.user, requestedGroup(call, state),
                          trimmedUpperCase(call.request.childText("acid")))) {
    Element& entry = answer.add("flight-notif");
    entry.add("id", flight->id);
    entry.add("owner-id", flight->owner);
    entry.add("group-id", flight->group);
    entry.add("timestamp", isoDateTime(flight->filed));
    entry.add("acid", flight->aircraft);
    entry.add("route", flight->route);
  }
}

}  // namespace

void flights(Registry& registry, State& state) {
  // A fresh service holds this one, so that there is something to list.
  const Account owner = demoAccount();
  state.flights.add({{},
                     owner.user,
                     owner.groups.front().name,
                     state.now(),
                     "VHNSM",
                     "YSSY WOL H65 RAZZI Q29 LIZZI YMML"});
  const auto add = [&](const char* element, void (*handle)(const Call&, Element&, State&)) {
    registry.add(
        element, Endpoint::flightNotification,
        [handle, &state](const Call& call, Element& answer) { handle(call, answer, state); });
  };
  add("submit-icao-fn-rqs", fileFlightPlan);
  add("submit-sar-fn-rqs", fileSartime);
  add("active-fn-dir-rqs", listFlights);
}

}  // namespace sim::handlers
