#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/text_items.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/geo/point_from_name.h>
#include <ktpnaips/notification/icao_route.h>

#include <cstddef>
#include <utility>

namespace ktpnaips {

using modBrevank::addElement;

namespace {

constexpr std::size_t mostSegments = 50;

using Segment = ICAORouteSegment;

constexpr TextItem<Segment> changes[] = {
    {L"new-speed", textOf<&Segment::NewSpeed>, Sent::unlessEmpty},
    {L"new-level", textOf<&Segment::NewLevel>, Sent::unlessEmpty},
    {L"cc-level", textOf<&Segment::CCLevel>, Sent::unlessEmpty},
    {L"new-rules", textOf<&Segment::NewRules>, Sent::unlessEmpty},
};

}  // namespace

void ICAORouteSegment::setNamed(std::wstring_view name) {
  Waypoint(Utils::pointFromName(name));
}

void ICAORouteSegment::setLatLon(double latitude, double longitude) {
  Waypoint(std::make_shared<CoordinatePoint>(latitude, longitude));
}

void ICAORouteSegment::setBearingDistance(std::wstring_view name, std::int16_t bearing,
                                          std::int16_t distance) {
  Waypoint(std::make_shared<BearingDistPoint>(name, bearing, distance));
}

void ICAORouteSegment::appendTo(const xml::Node& segment, std::wstring_view namespaceUri) const {
  if (!ATSRouteId().empty()) addElement(segment, L"ats-route", namespaceUri, ATSRouteId());
  if (Waypoint()) addPart(segment, L"waypoint", namespaceUri, Waypoint().get());
  addItems(segment, namespaceUri, *this, changes);
}

void ICAORoute::Add(std::shared_ptr<ICAORouteSegment> segment) {
  if (segment != nullptr) addWithin(mostSegments, segments_, std::move(segment));
}

void ICAORoute::appendTo(const xml::Node& route, std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"ICAORoute"), [&] {
    addElement(route, L"speed", namespaceUri, Speed());
    addElement(route, L"level", namespaceUri, Level());
    for (const auto& segment : segments_) addPart(route, L"segment", namespaceUri, segment.get());
  });
}

}  // namespace ktpnaips
