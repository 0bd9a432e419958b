#pragma once

#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>

#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

/// A standard route. All texts are empty where the answer gives none.
class RouteSummary {
 public:
  Property<std::wstring> Depart;       ///< departure aerodrome
  Property<std::wstring> Destination;  ///< destination aerodrome
  Property<std::wstring> RouteCode;    ///< the code by which it is fetched and referred to
  Property<std::wstring> Description;  ///< the route in words or points
};

/// The standard routes between two aerodromes, in the order of the answer.
class RouteDirectoryRsp : public ResponseBase,
                          public OpenCollection<std::shared_ptr<RouteSummary>> {
 private:
  void extractData() override;
};

/// Lists the standard routes between two aerodromes.
class RouteDirectoryRqs : public Request<RouteDirectoryRsp> {
 public:
  RouteDirectoryRqs();

  /// Whether only domestic routes are asked for; international ones too when false. Default true.
  /// Kept in the `Scope` of `abstractReq`.
  [[nodiscard]] bool DomesticOnly() const;
  void DomesticOnly(bool value);

  /// Departure, trimmed and upper-cased; sent also when empty (the default).
  Property<std::wstring, rule::Cleaned> Depart;

  /// Destination, trimmed and upper-cased; sent also when empty (the default).
  Property<std::wstring, rule::Cleaned> Destination;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

/// Fetches one standard route. The route itself stands in the response's `Payload`.
class GetRouteRqs : public Request<ResponseBase> {
 public:
  GetRouteRqs();

  /// Departure, trimmed and upper-cased; sent also when empty (the default).
  Property<std::wstring, rule::Cleaned> Depart;

  /// The route's code, trimmed and upper-cased; sent also when empty (the default).
  Property<std::wstring, rule::Cleaned> Code;

  /// Destination, trimmed and upper-cased; sent also when empty (the default).
  Property<std::wstring, rule::Cleaned> Destination;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
