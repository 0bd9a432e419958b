#pragma once

#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>
#include <ktpnaips/geo/points.h>

#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

/// A location or airspace. What the answer does not give stays empty.
class LocAirspaceDetails {
 public:
  Property<std::wstring> Key;                        ///< the service's identifier of it
  Property<std::wstring> Name;                       ///< its name
  Property<std::shared_ptr<CoordinatePoint>> Coord;  ///< its position; no object when unknown
  Property<std::wstring> Description;                ///< what it is
};

/// Locations and airspaces, in the order of the answer.
class LocAirspaceDirectoryRsp : public ResponseBase,
                                public OpenCollection<std::shared_ptr<LocAirspaceDetails>> {
 private:
  void extractData() override;
};

/// Looks up locations and airspaces by a part of their name.
class LocAirspaceDirectoryRqs : public Request<LocAirspaceDirectoryRsp> {
 public:
  LocAirspaceDirectoryRqs();

  /// Trimmed and upper-cased; sent also when empty (the default).
  Property<std::wstring, rule::Cleaned> PartialName;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
