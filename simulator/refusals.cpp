#include "simulator/refusals.h"

#include <optional>

#include "simulator/data/text.h"

namespace sim {

void refuseWithoutStages(std::size_t stages) {
  if (stages == 0) {
    throw Refusal("The flight has no stages");
  }
}

void refuseWithoutAircraft(std::string_view aircraft) {
  const std::string name = trimmedUpperCase(aircraft);
  if (name.empty() || name == "NOSEND") {
    throw Refusal("The aircraft identification is missing");
  }
}

void refuseUnknown(const Place& place) {
  if (place.text.empty()) {
    throw Refusal("A place is missing");
  }
  if (!isKnown(place)) {
    throw Refusal("Unknown place: " + place.text);
  }
}

void refuseUnknownAerodrome(std::string_view code) {
  if (!isAerodrome(code)) {
    throw Refusal("Unknown aerodrome: " + std::string(code));
  }
}

void refusePastDeparture(TimePoint etd, TimePoint now) {
  if (etd < now) {
    throw Refusal("The estimated time of departure is in the past: " + isoDateTime(etd));
  }
}

std::string requestedGroup(const Call& call, const State& state) {
  const std::optional<XmlView> element = call.request.child("group-id");
  if (!element) {
    return {};
  }
  const std::string group = element->childText("group-name");
  if (state.strict && !isMember(call.account, group)) {
    throw Refusal("You are not in the group " + group);
  }
  return group;
}

}  // namespace sim
