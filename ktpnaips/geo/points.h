#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/property.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace ktpnaips {

/// A place: by name, by coordinates, or by bearing and distance from a named place. An invalid
/// point appends nothing, and reports nothing.
class Point : public IAppendable {
 public:
  /// The compact form used in route text, of whatever the properties hold.
  [[nodiscard]] virtual std::wstring toString() const = 0;
};

/// An aerodrome, navaid or waypoint by its designator.
class NamedPoint : public Point {
 public:
  NamedPoint() = default;
  /// With this designator.
  explicit NamedPoint(std::wstring_view name);

  /// The designator, trimmed and upper-cased; invalid while empty (the default).
  Property<std::wstring, rule::Cleaned> Name;

  void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const override;
  [[nodiscard]] std::wstring toString() const override;
};

/// A place by latitude and longitude.
class CoordinatePoint : public Point {
 public:
  CoordinatePoint() = default;
  /// At this latitude and longitude.
  CoordinatePoint(double lat, double lon);

  /// Decimal degrees, north positive; valid from -90 to 90. Any value is kept. Default 91: invalid.
  Property<double> Lat{91.0};

  /// Decimal degrees, east positive; valid from -180 to 180. Any value is kept. Default 181:
  /// invalid.
  Property<double> Lon{181.0};

  /// A failure is reported and leaves what was written.
  void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const override;

  /// Degrees and minutes: "3352S15112E". Minutes that round up stay 60, degrees have at least two
  /// digits. Throws fault 6 from 32,768 degrees on.
  [[nodiscard]] std::wstring toString() const override;
};

/// A place by bearing and distance from a named one.
class BearingDistPoint : public Point {
 public:
  BearingDistPoint() = default;
  /// At this bearing and distance from a named location.
  BearingDistPoint(std::wstring_view name, std::int16_t bearing, std::int16_t distance);

  /// The reference location, trimmed and upper-cased; invalid while empty (the default).
  Property<std::wstring, rule::Cleaned> Name;

  /// Whole degrees; valid from 0 to 359. Any value is kept. Default 0.
  Property<std::int16_t> Bearing;

  /// Whole nautical miles; valid from 1 to 999. Any value is kept. Default 0: invalid.
  Property<std::int16_t> Distance;

  void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const override;

  /// The name with bearing and distance of at least three digits: "SY045025".
  [[nodiscard]] std::wstring toString() const override;
};

}  // namespace ktpnaips
