#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/geo/points.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips {

/// One element of a route: an ATS route and/or a waypoint, and what changes there. Texts are
/// trimmed and upper-cased, their form is not checked, and each is sent when not empty; default "".
class ICAORouteSegment : public IAppendable {
 public:
  Property<std::wstring, rule::Cleaned> NewSpeed;    ///< speed from here, as "N0450" or "M082"
  Property<std::wstring, rule::Cleaned> NewLevel;    ///< level from here, as "F350" or "A080"
  Property<std::wstring, rule::Cleaned> ATSRouteId;  ///< the ATS route, as "H65"
  Property<std::wstring, rule::Cleaned> NewRules;    ///< flight rules from here, as "IFR"

  /// The waypoint; an invalid point leaves its element empty. Default: none.
  Property<std::shared_ptr<Point>> Waypoint;

  /// Level to which a cruise climb leads.
  Property<std::wstring, rule::Cleaned> CCLevel;

  /// The waypoint becomes what the name gives: a named location, or a bearing and distance from
  /// one.
  void setNamed(std::wstring_view name);

  /// The waypoint becomes a position in decimal degrees, north and east positive.
  void setLatLon(double latitude, double longitude);

  /// The waypoint becomes the point at a bearing (whole degrees, valid from 0 to 359) and a
  /// distance (whole nautical miles, valid from 1 to 999) from a named location.
  void setBearingDistance(std::wstring_view name, std::int16_t bearing, std::int16_t distance);

  /// Fills the segment element. A fault is passed on.
  void appendTo(const xml::Node& segment, std::wstring_view namespaceUri) const override;
};

/// The route of a stage (item 15): cruising speed and level, and up to 50 segments.
class ICAORoute : public IAppendable {
 public:
  /// Cruising speed, trimmed and upper-cased; its form is not checked. Default "N0100".
  Property<std::wstring, rule::Cleaned> Speed{L"N0100"};

  /// Cruising level, trimmed and upper-cased; its form is not checked. Default "A080".
  Property<std::wstring, rule::Cleaned> Level{L"A080"};

  /// Appends a segment, which stays shared with the host. No object is ignored; a fifty-first
  /// segment is dropped silently.
  void Add(std::shared_ptr<ICAORouteSegment> segment);

  /// Fills the route element. An unexpected failure is reported; what was appended before it stays.
  void appendTo(const xml::Node& route, std::wstring_view namespaceUri) const override;

 private:
  std::vector<std::shared_ptr<ICAORouteSegment>> segments_;
};

}  // namespace ktpnaips
