#pragma once

#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>
#include <ktpnaips/geo/points.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

/// The times of first and last light, as the service writes them; empty when it gives none.
class FirstLastLightRsp : public ResponseBase {
 public:
  ReadOnly<std::wstring, FirstLastLightRsp> ForDate;     ///< the date for which they hold
  ReadOnly<std::wstring, FirstLastLightRsp> FirstLight;  ///< time of first light
  ReadOnly<std::wstring, FirstLastLightRsp> LastLight;   ///< time of last light

 private:
  void extractData() override;
};

/// Asks for the times of first and last light at one point on one date.
class FirstLastLightRqs : public Request<FirstLastLightRsp> {
 public:
  FirstLastLightRqs();

  /// Only the date is sent. Default: the local time at which the request was created.
  Property<DateTime> ForDate;

  /// The place; without one (the default) the request's point stays empty.
  Property<std::shared_ptr<ktpnaips::Point>> Point;

  /// Makes `Point` what the designator gives: a named point, or one by bearing and distance when it
  /// ends in six digits of them ("SY045025").
  void setNamed(std::wstring_view name);
  /// Makes `Point` the place at these decimal degrees, north and east positive.
  void setLatLon(double lat, double lon);
  /// Makes `Point` the place at this bearing (degrees) and distance (nautical miles) from a named
  /// one.
  void setBearingDistance(std::wstring_view name, std::int16_t bearing, std::int16_t distance);

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
