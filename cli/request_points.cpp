#include "cli/request_keys.h"

#include <ktpnaips/notification/icao_route.h>

namespace cli {

using ktpnaips::BearingDistPoint;
using ktpnaips::CoordinatePoint;
using ktpnaips::NamedPoint;
using ktpnaips::Point;

template <>
struct Keys<NamedPoint> {
  static constexpr Key<NamedPoint> all[] = {{"Name", set<&NamedPoint::Name>}};
};

template <>
struct Keys<CoordinatePoint> {
  static constexpr Key<CoordinatePoint> all[] = {{"Lat", set<&CoordinatePoint::Lat>},
                                                 {"Lon", set<&CoordinatePoint::Lon>}};
};

template <>
struct Keys<BearingDistPoint> {
  static constexpr Key<BearingDistPoint> all[] = {{"Name", set<&BearingDistPoint::Name>},
                                                  {"Bearing", set<&BearingDistPoint::Bearing>},
                                                  {"Distance", set<&BearingDistPoint::Distance>}};
};

namespace {

std::shared_ptr<Point> fromDesignator(const FileValue& from) {
  ktpnaips::ICAORouteSegment segment;
  segment.setNamed(from.text());
  return segment.Waypoint();
}

}  // namespace

void read(const FileValue& from, std::shared_ptr<Point>& into) {
  if (from.isNull()) {
    into = nullptr;
  } else if (from.isText()) {
    into = fromDesignator(from);
  } else if (from.has("Lat") || from.has("Lon")) {
    into = valueOf<std::shared_ptr<CoordinatePoint>>(from);
  } else if (from.has("Bearing") || from.has("Distance")) {
    into = valueOf<std::shared_ptr<BearingDistPoint>>(from);
  } else if (!from.members().empty()) {
    into = valueOf<std::shared_ptr<NamedPoint>>(from);
  } else {
    from.refuse(
        "must be a point: a designator, {\"Name\"}, {\"Lat\", \"Lon\"} or "
        "{\"Name\", \"Bearing\", \"Distance\"}");
  }
}

}  // namespace cli
