#pragma once

#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips {

namespace rule {

/// As `Cleaned`; an empty text becomes "DCT", for a direct route.
struct DirectWhenEmpty {
  static std::wstring apply(std::wstring_view value);
};

}  // namespace rule

/// One stage of a wind and temperature profile; its places are plain text.
class WindTempStage : public IAppendable {
 public:
  /// Estimated time of departure, UTC. Default 1899-12-30 00:00:00, which is sent too.
  Property<DateTime> ETD{zeroDateTime};

  /// Departure, trimmed and upper-cased. Default "".
  Property<std::wstring, rule::Cleaned> Depart;

  /// Destination, trimmed and upper-cased. Default "".
  Property<std::wstring, rule::Cleaned> Destination;

  /// Route, trimmed and upper-cased; setting an empty one stores "DCT". Left out of the request
  /// when never set (the default).
  Property<std::wstring, rule::DirectWhenEmpty> Route;

  /// Appends the stage's elements to its own. A failure is reported and leaves what was written.
  void appendTo(const xml::Node& stage, std::wstring_view namespaceUri) const override;
};

/// Asks for forecast winds and temperatures along a flight of up to 10 stages.
class WindTempProfileRqs : public Request<BriefingResponse> {
 public:
  WindTempProfileRqs();

  /// True airspeed in flight-plan notation, trimmed and upper-cased; sent also when empty (the
  /// default).
  Property<std::wstring, rule::Cleaned> TAS;

  /// Adds a stage, shared with the host; no object and an eleventh stage are dropped silently.
  void addStage(std::shared_ptr<WindTempStage> stage);

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;

  std::vector<std::shared_ptr<WindTempStage>> stages_;
};

}  // namespace ktpnaips
