#include <ktpnaips/core/needed.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/geo/point_from_name.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/spfib/spfib_route.h>

#include <cstddef>
#include <utility>

namespace ktpnaips {

using modBrevank::addElement;

void SPFIBRoute::Add(std::shared_ptr<Point> point) {
  points_.push_back(std::move(point));
}

void SPFIBRoute::Add(std::shared_ptr<Point> point, std::wstring_view key) {
  if (key.empty()) return Add(std::move(point));
  const auto [entry, isNew] = positions_.try_emplace(text::toUpper(key), points_.size());
  if (!isNew) throw RuntimeFault(fault::duplicateKey);
  try {
    Add(std::move(point));
  } catch (...) {
    positions_.erase(entry);
    throw;
  }
}

void SPFIBRoute::addNamed(std::wstring_view name) {
  Add(Utils::pointFromName(name));
}

void SPFIBRoute::addLatLon(double latitude, double longitude) {
  Add(std::make_shared<CoordinatePoint>(latitude, longitude));
}

void SPFIBRoute::addBearingDistance(std::wstring_view name, std::int16_t bearing,
                                    std::int16_t distance) {
  Add(std::make_shared<BearingDistPoint>(name, bearing, distance));
}

std::size_t SPFIBRoute::positionOf(std::int32_t index) const {
  if (index < 1 || index > Count()) throw RuntimeFault(fault::subscriptOutOfRange);
  return static_cast<std::size_t>(index) - 1;
}

std::size_t SPFIBRoute::positionOf(std::wstring_view key) const {
  const auto found = positions_.find(text::toUpper(key));
  if (found == positions_.end()) throw RuntimeFault(fault::invalidCall);
  return found->second;
}

std::shared_ptr<Point> SPFIBRoute::Item(std::int32_t index) const {
  return points_[positionOf(index)];
}

std::shared_ptr<Point> SPFIBRoute::Item(std::wstring_view key) const {
  return points_[positionOf(key)];
}

void SPFIBRoute::removeAt(std::size_t position) {
  points_.erase(points_.begin() + static_cast<std::ptrdiff_t>(position));
  std::erase_if(positions_, [position](const auto& each) { return each.second == position; });
  for (auto& [key, each] : positions_) {
    if (each > position) --each;
  }
}

void SPFIBRoute::Remove(std::int32_t index) {
  removeAt(positionOf(index));
}

void SPFIBRoute::Remove(std::wstring_view key) {
  removeAt(positionOf(key));
}

std::int32_t SPFIBRoute::Count() const noexcept {
  return static_cast<std::int32_t>(points_.size());
}

void SPFIBRoute::Clear() noexcept {
  points_.clear();
  positions_.clear();
}

void SPFIBRoute::appendTo(const xml::Node& stage, std::wstring_view namespaceUri) const {
  if (RouteCode().empty() && points_.empty()) return;
  const xml::Node route = addElement(stage, L"route", namespaceUri);
  if (!RouteCode().empty()) {
    addElement(route, L"route-id", namespaceUri, RouteCode());
    return;
  }
  for (const auto& point : points_) {
    const xml::Node waypoint = addElement(route, L"waypoints", namespaceUri);
    needed(point).appendTo(waypoint, namespaceUri);
  }
}

}  // namespace ktpnaips
