#include "cli/pack/pack.h"

#include "cli/pack/times.h"

#include <fmt/format.h>

#include <chrono>
#include <cmath>

namespace cli::pack {

using ktpnaips::DateTime;

namespace {

void remarkOnValidity(const Pack& pack, std::vector<std::string>& remarks) {
  if (!pack.validity) return;
  const auto& [from, till] = *pack.validity;
  for (const Stage& stage : pack.flight.stages) {
    const DateTime end = arrivalOf(pack.flight, stage).value_or(stage.etd);
    if (stage.etd >= from && end <= till) continue;
    remarks.push_back(fmt::format(
        "The bulletin holds from {} till {}: it does not cover the whole stage {} to {}, ETD {}.",
        dayTimeText(from), dayTimeText(till), stage.from.text, stage.to.text,
        dayTimeText(stage.etd)));
  }
}

void remarkOnLight(const Pack& pack, const Place& place, DateTime time, const char* event,
                   std::vector<std::string>& remarks) {
  const Light* light = lightAt(pack, place.text, time);
  if (light == nullptr) return;
  if (light->firstTime && time < *light->firstTime) {
    remarks.push_back(fmt::format("{} at {}, {}, is before first light ({}).", event, place.text,
                                  dayTimeText(time), timeText(*light->firstTime)));
  } else if (light->lastTime && time > *light->lastTime) {
    remarks.push_back(fmt::format("{} at {}, {}, is after last light ({}).", event, place.text,
                                  dayTimeText(time), timeText(*light->lastTime)));
  }
}

void remarkOnPlaces(const Pack& pack, std::vector<std::string>& remarks) {
  for (const auto& [name, location] : pack.locations) {
    if (location.answer.failed || location.position) continue;
    remarks.push_back(fmt::format(
        "The location directory has no position of {}: it is missing on the map and in distances.",
        name));
  }
}

void remarkOnWay(const Way& way, const Place& from, const Place& to,
                 std::vector<std::string>& remarks) {
  if (!way.isUnknown()) return;
  remarks.push_back(fmt::format(
      "The points of route {} from {} to {} are not known: map and distances go direct.", way.code,
      from.text, to.text));
}

}  // namespace

const Light* lightAt(const Pack& pack, const std::string& place, DateTime time) {
  const Light* found = nullptr;
  for (const Light& light : pack.lights) {
    if (light.place != place || light.answer.failed) continue;
    if (found == nullptr || (found->lastTime && time > *found->lastTime)) found = &light;
  }
  return found;
}

DateTime localDate(DateTime time, const std::optional<Position>& position) {
  const auto ahead =
      std::chrono::minutes(position ? std::lround(position->lon * 4) : 0);  // 4 minutes a degree
  return std::chrono::floor<std::chrono::days>(time + ahead);
}

std::vector<std::string> remarksOn(const Pack& pack) {
  std::vector<std::string> remarks;
  if (pack.isSimulated) {
    remarks.emplace_back(
        "This comes from a simulated service, which invents it: do not fly by it.");
  }
  remarkOnValidity(pack, remarks);
  for (const Stage& stage : pack.flight.stages) {
    remarkOnLight(pack, stage.from, stage.etd, "Departure", remarks);
    if (const auto arrival = arrivalOf(pack.flight, stage)) {
      remarkOnLight(pack, stage.to, *arrival, "Arrival in still air", remarks);
    }
    remarkOnWay(stage.way, stage.from, stage.to, remarks);
    if (stage.alternate) {
      remarkOnWay(stage.alternate->way, stage.to, stage.alternate->place, remarks);
    }
  }
  remarkOnPlaces(pack, remarks);
  return remarks;
}

}  // namespace cli::pack
