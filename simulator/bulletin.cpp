#include "simulator/bulletin.h"

#include <algorithm>
#include <utility>

#include "simulator/briefing_period.h"
#include "simulator/data/routes.h"
#include "simulator/data/text.h"

namespace sim {
namespace {

constexpr std::size_t keptBulletins = 10000;

BulletinRoute routeIn(const XmlView& holder) {
  BulletinRoute result;
  if (const std::optional<XmlView> route = holder.child("route")) {
    result.code = route->childText("route-id");
    for (const XmlView& point : route->children("waypoints")) {
      result.points.push_back(placeIn(point));
    }
  }
  return result;
}

BulletinStage stageIn(const XmlView& stage) {
  BulletinStage result;
  result.departure = placeIn(*stage.child("adep"));
  result.etd = dateTimeOf(stage.childText("etd"));
  result.destination = placeIn(*stage.child("ades"));
  result.weightCategory = stage.childText("weight-category");
  result.level = stage.childText("level");
  result.route = routeIn(stage);
  result.additionalLocations = stage.childTexts("additional-loc");
  result.areas = stage.childTexts("area");
  if (const std::optional<XmlView> alternate = stage.child("alternate")) {
    result.alternate = BulletinAlternate{placeIn(*alternate->child("ades")),
                                         alternate->childText("level"), routeIn(*alternate)};
  }
  return result;
}

const StandardRoute* standardRoute(const BulletinStage& stage) {
  return findRoute(stage.departure.text, stage.destination.text, stage.route.code);
}

}  // namespace

BulletinSpec bulletinSpec(const XmlView& spfib) {
  const auto flag = [&](std::string_view name) { return spfib.childText(name) == "true"; };
  BulletinSpec spec;
  spec.domestic = flag("domestic");
  spec.aircraft = spfib.childText("acid");
  for (const XmlView& stage : spfib.children("stage")) {
    spec.stages.push_back(stageIn(stage));
  }
  spec.trueAirspeed = spfib.childText("tas");
  spec.winds = flag("exp-wind");
  spec.generalNotams = flag("intl-series-notam");
  spec.fullTextNotams = flag("full-text-notam");
  spec.charts = flag("charts");
  spec.midLevelCharts = flag("mid-sigwx-gpwt");
  spec.high = spfib.childText("variant") == "HI";
  return spec;
}

std::vector<Place> placesOf(const BulletinStage& stage) {
  std::vector<Place> places{stage.departure};
  if (const StandardRoute* route = standardRoute(stage)) {
    for (const std::string_view name : words(route->waypoints)) {
      places.push_back(placeNamed(name));
    }
  } else {
    places.insert(places.end(), stage.route.points.begin(), stage.route.points.end());
  }
  places.push_back(stage.destination);
  return places;
}

std::string routeText(const BulletinStage& stage) {
  if (const StandardRoute* route = standardRoute(stage)) {
    return std::string(route->waypoints);
  }
  std::string text = "DCT";
  for (const Place& point : stage.route.points) {
    if (!point.text.empty()) {
      text.append(" ").append(point.text).append(" DCT");
    }
  }
  return text;
}

const Bulletin& BulletinStore::add(Bulletin bulletin) {
  bulletin.number = std::to_string(++lastNumber_);
  if (bulletins_.size() == keptBulletins) {
    bulletins_.pop_front();
  }
  return bulletins_.emplace_back(std::move(bulletin));
}

Bulletin* BulletinStore::find(std::string_view number, const Account& account) {
  const auto found = std::ranges::find(bulletins_, number, &Bulletin::number);
  if (found == bulletins_.end() ||
      (found->owner != account.user && !isMember(account, found->group))) {
    return nullptr;
  }
  return &*found;
}

std::vector<const Bulletin*> BulletinStore::list(std::string_view owner,
                                                 std::string_view group) const {
  std::vector<const Bulletin*> found;
  for (const Bulletin& bulletin : bulletins_) {
    if (group.empty() ? bulletin.owner == owner : equalIgnoringCase(bulletin.group, group)) {
      found.push_back(&bulletin);
    }
  }
  return found;
}

}  // namespace sim
