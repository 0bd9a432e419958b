#pragma once

#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/spfib/spfib_route.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips {

/// A place that the host gives and reads as text, held as the point that the text designates.
class PlaceProperty {
 public:
  /// The compact text of the point; empty when none is held.
  std::wstring operator()() const;
  /// Holds the point that the designator gives ("YSSY", "SY045025").
  void operator()(std::wstring_view designator);

 private:
  friend class SPFIBStageSpec;

  std::shared_ptr<Point> point_;
};

/// One stage of the flight for which a pre-flight bulletin is asked.
class SPFIBStageSpec : public IAppendable {
 public:
  SPFIBStageSpec();

  /// Aircraft weight category, trimmed and upper-cased; left out of the request when empty.
  /// Default "L".
  Property<std::wstring, rule::Cleaned> WeightCat{L"L"};

  /// Estimated time of departure, UTC. Default: the local time at which the stage was created.
  Property<DateTime> ETD;

  /// Where the stage starts; needed. Default: none.
  PlaceProperty Departing;

  /// Where the stage ends; needed. Default: none.
  PlaceProperty Destination;

  /// Cruising level, sent as given, also when empty. Default "F180".
  Property<std::wstring> Level{L"F180"};

  /// The alternate destination; without one (the default) nothing of the alternate is sent.
  PlaceProperty AltDestination;

  /// Level to the alternate, sent as given, also when empty (the default).
  Property<std::wstring> AltLevel;

  /// The route, shared with the host; needed. Default: none.
  Property<std::shared_ptr<SPFIBRoute>> Route;

  /// The route to the alternate, shared with the host; left out without one (the default).
  Property<std::shared_ptr<SPFIBRoute>> AltRoute;

  /// Adds a location of interest, trimmed and upper-cased; an empty one and a tenth are dropped
  /// silently.
  void addAdditionalLocation(std::wstring_view location);
  /// Adds an area of interest, trimmed and upper-cased; an empty one and a sixth are dropped
  /// silently.
  void addAdditionalArea(std::wstring_view area);

  /// Appends the stage's elements to its own. A needed part that is missing is reported (fault 91)
  /// and ends the stage there.
  void appendTo(const xml::Node& stage, std::wstring_view namespaceUri) const override;

 private:
  void appendAlternate(const xml::Node& stage, std::wstring_view namespaceUri) const;

  std::vector<std::wstring> additionalLocations_;
  std::vector<std::wstring> additionalAreas_;
};

}  // namespace ktpnaips
