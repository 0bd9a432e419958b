#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/geo/points.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ktpnaips {

/// The route of a stage of a pre-flight bulletin: its points in order, some under keys of their
/// own, or the code of a stored route. Indexes count from 1; keys compare regardless of case.
class SPFIBRoute : public IAppendable {
 public:
  /// The code of a stored route, trimmed and upper-cased; when set, it is sent and the points are
  /// not. Default "".
  Property<std::wstring, rule::Cleaned> RouteCode;

  /// Appends the point; it is not checked.
  void Add(std::shared_ptr<Point> point);
  /// Appends the point under a key; an empty one is none. Throws fault 457 when the route has the
  /// key already.
  void Add(std::shared_ptr<Point> point, std::wstring_view key);

  /// Appends the point that the designator gives.
  void addNamed(std::wstring_view name);
  /// Appends the point at these decimal degrees, north and east positive.
  void addLatLon(double latitude, double longitude);
  /// Appends the point at this bearing (degrees) and distance (nautical miles) from a named one.
  void addBearingDistance(std::wstring_view name, std::int16_t bearing, std::int16_t distance);

  /// The point at an index; throws fault 9 outside 1 to `Count`.
  [[nodiscard]] std::shared_ptr<Point> Item(std::int32_t index) const;
  /// The point under a key; throws fault 5 when the route does not have it.
  [[nodiscard]] std::shared_ptr<Point> Item(std::wstring_view key) const;

  /// Removes the point at an index; throws fault 9 outside 1 to `Count`.
  void Remove(std::int32_t index);
  /// Removes the point under a key; throws fault 5 when the route does not have it.
  void Remove(std::wstring_view key);

  /// The number of points.
  [[nodiscard]] std::int32_t Count() const noexcept;
  /// Removes all points; `RouteCode` stays.
  void Clear() noexcept;

  /// The points in order, for iteration.
  [[nodiscard]] auto begin() const noexcept { return points_.begin(); }
  [[nodiscard]] auto end() const noexcept { return points_.end(); }

  /// Appends "route" with the code or a waypoint for each point; nothing when there is neither.
  /// Throws fault 91 at a point that is no object.
  void appendTo(const xml::Node& stage, std::wstring_view namespaceUri) const override;

 private:
  [[nodiscard]] std::size_t positionOf(std::int32_t index) const;
  [[nodiscard]] std::size_t positionOf(std::wstring_view key) const;
  void removeAt(std::size_t position);

  std::vector<std::shared_ptr<Point>> points_;
  std::unordered_map<std::wstring, std::size_t> positions_;  // by key, upper-cased
};

}  // namespace ktpnaips
