#pragma once

#include <ktpnaips/briefing/briefing_request.h>
#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/core/flag_word.h>
#include <ktpnaips/core/request.h>

#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips {

/// A request with a briefing period.
class PeriodRequest : public Request<BriefingResponse> {
 public:
  /// The briefing period of this request.
  [[nodiscard]] BriefingRequest& briefingReq() noexcept { return briefingReq_; }
  [[nodiscard]] const BriefingRequest& briefingReq() const noexcept { return briefingReq_; }

 protected:
  using Request::Request;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const final;
  /// Appends what follows the period.
  virtual void appendItems(const xml::Node& request, std::wstring_view namespaceUri) const = 0;

  BriefingRequest briefingReq_;
};

/// A briefing for up to 5 forecast areas. Flags: 0 MET, 1 NOTAM, 2 head-office NOTAM, 3 charts,
/// 4 mid-level SIGWX and grid-point charts, 5 charts of the high variant instead of the low.
class AreaBriefingRqs : public PeriodRequest, public FlagWord {
 public:
  AreaBriefingRqs();

  /// Adds an area, exactly as given; a sixth is dropped silently.
  void addArea(std::wstring_view area);
  /// Removes all areas.
  void clearAreas() noexcept;

 private:
  void appendItems(const xml::Node& request, std::wstring_view namespaceUri) const override;

  std::vector<std::wstring> areas_;
};

/// A briefing for up to 12 locations. Flags: 0 MET, 1 NOTAM, 2 head-office NOTAM, 3 SIGMET.
class LocationBriefingRqs : public PeriodRequest, public FlagWord {
 public:
  LocationBriefingRqs();

  /// Adds a location, exactly as given; a thirteenth is dropped silently.
  void addLocation(std::wstring_view location);
  /// Removes all locations.
  void clearLocations() noexcept;

 private:
  void appendItems(const xml::Node& request, std::wstring_view namespaceUri) const override;

  std::vector<std::wstring> locations_;
};

/// MET messages for up to 4 locations. Flags are the message types: 0 TAF, 1 TTF, 2 METAR, 3 SPECI,
/// 4 AQNH, 5 SIGMET, 7 AIRMET, 8 ATIS; bit 6 has no meaning.
class MetBriefingRqs : public PeriodRequest, public FlagWord {
 public:
  MetBriefingRqs();

  /// Adds a location, exactly as given; a fifth is dropped silently.
  void addLocation(std::wstring_view location);
  /// Removes all locations.
  void clearLocations() noexcept;

 private:
  void appendItems(const xml::Node& request, std::wstring_view namespaceUri) const override;

  std::vector<std::wstring> locations_;
};

}  // namespace ktpnaips
