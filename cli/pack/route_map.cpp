#include "cli/pack/route_map.h"

#include <fmt/format.h>

#include <algorithm>

namespace cli::pack {
namespace {

bool isSame(Position a, Position b) {
  return a.lat == b.lat && a.lon == b.lon;
}

void addLegs(std::vector<RouteLeg>& legs, const std::vector<const Place*>& way, bool isAlternate) {
  const Place* last = nullptr;
  for (const Place* place : way) {
    if (!place->position) continue;
    if (last != nullptr && last->text != place->text) {
      legs.push_back({last->text, place->text, {*last->position, *place->position, isAlternate}});
    }
    last = place;
  }
}

}  // namespace

std::vector<RouteLeg> legsOf(const Stage& stage) {
  std::vector<RouteLeg> legs;
  addLegs(legs, mainWay(stage), false);
  addLegs(legs, alternateWay(stage), true);
  return legs;
}

std::vector<MapPoint> mapPoints(const Flight& flight) {
  std::vector<MapPoint> points;
  const auto add = [&](const Place& place, PointKind kind) {
    if (!place.position) return;
    const auto same = std::ranges::find(points, place.text, &MapPoint::name);
    if (same == points.end()) points.push_back({place.text, *place.position, kind});
  };
  const auto addAll = [&](const std::vector<Place>& places, PointKind kind) {
    for (const Place& place : places) add(place, kind);
  };
  // An aerodrome of one stage may be a point of another.
  for (const Stage& stage : flight.stages) {
    add(stage.from, PointKind::aerodrome);
    add(stage.to, PointKind::aerodrome);
    if (stage.alternate) add(stage.alternate->place, PointKind::aerodrome);
  }
  for (const Stage& stage : flight.stages) {
    addAll(stage.way.points, PointKind::waypoint);
    if (stage.alternate) addAll(stage.alternate->way.points, PointKind::waypoint);
  }
  for (const Stage& stage : flight.stages) addAll(stage.locations, PointKind::ofInterest);
  return points;
}

std::vector<MapLeg> mapLegs(const Flight& flight) {
  std::vector<MapLeg> legs;
  for (const Stage& stage : flight.stages) {
    for (const RouteLeg& each : legsOf(stage)) {
      const bool isThere = std::ranges::any_of(legs, [&](const MapLeg& other) {
        return isSame(other.from, each.leg.from) && isSame(other.to, each.leg.to) &&
               other.isAlternate == each.leg.isAlternate;
      });
      if (!isThere) legs.push_back(each.leg);
    }
  }
  return legs;
}

std::string legsInWords(const Flight& flight) {
  std::string text;
  for (const Stage& stage : flight.stages) {
    for (const RouteLeg& each : legsOf(stage)) {
      text += fmt::format("{}{} to {}: {}{}.", text.empty() ? "" : " ", each.from, each.to,
                          legText(each.leg.from, each.leg.to),
                          each.leg.isAlternate ? ", alternate" : "");
    }
  }
  return text;
}

}  // namespace cli::pack
