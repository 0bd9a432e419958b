#include "simulator/data/light.h"

#include <chrono>
#include <optional>
#include <string>

#include "simulator/briefing_period.h"
#include "simulator/place.h"
#include "simulator/refusals.h"

namespace sim::handlers {
namespace {

void addTime(Element& answer, const char* name, const std::optional<TimePoint>& time) {
  if (time) {
    answer.add(name, isoDateTime(*time));
  }
}

void firstLastLight(const Call& call, Element& answer) {
  const Place place = placeIn(*call.request.child("point"));
  refuseUnknown(place);
  if (!place.position) {
    throw Refusal("The position of " + place.text + " is not held");
  }
  const std::string date = call.request.childText("date");
  const auto day = std::chrono::floor<std::chrono::days>(dateTimeOf(date + "T00:00:00Z"));
  const Daylight light = daylight(place.position->latitude, place.position->longitude, day);
  answer.add("date", date);
  addTime(answer, "first", light.first);
  addTime(answer, "last", light.last);
}

}  // namespace

void light(Registry& registry, State&) {
  registry.add("fl-ll-rqs", Endpoint::briefing, firstLastLight);
}

}  // namespace sim::handlers
