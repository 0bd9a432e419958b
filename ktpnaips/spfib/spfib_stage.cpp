#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/needed.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/geo/point_from_name.h>
#include <ktpnaips/platform/clock.h>
#include <ktpnaips/spfib/spfib_stage.h>

#include <cstddef>

namespace ktpnaips {

using modBrevank::addElement;
using modBrevank::addElements;

namespace {

constexpr std::size_t mostLocations = 9;
constexpr std::size_t mostAreas = 5;

void addPlace(const xml::Node& parent, std::wstring_view name, std::wstring_view namespaceUri,
              const std::shared_ptr<Point>& point) {
  const xml::Node place = addElement(parent, name, namespaceUri);
  needed(point).appendTo(place, namespaceUri);
}

}  // namespace

std::wstring PlaceProperty::operator()() const {
  return point_ != nullptr ? point_->toString() : std::wstring();
}

void PlaceProperty::operator()(std::wstring_view designator) {
  point_ = Utils::pointFromName(designator);
}

SPFIBStageSpec::SPFIBStageSpec() : ETD(clock::now()) {}

void SPFIBStageSpec::addAdditionalLocation(std::wstring_view location) {
  addCleanedWithin(mostLocations, additionalLocations_, location);
}

void SPFIBStageSpec::addAdditionalArea(std::wstring_view area) {
  addCleanedWithin(mostAreas, additionalAreas_, area);
}

void SPFIBStageSpec::appendTo(const xml::Node& stage, std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"SPFIBStage"), [&] {
    addPlace(stage, L"adep", namespaceUri, Departing.point_);
    addElement(stage, L"etd", namespaceUri, isoDateTime(ETD()));
    addPlace(stage, L"ades", namespaceUri, Destination.point_);
    if (!WeightCat().empty()) addElement(stage, L"weight-category", namespaceUri, WeightCat());
    addElement(stage, L"level", namespaceUri, Level());
    needed(Route()).appendTo(stage, namespaceUri);
    addElements(stage, L"additional-loc", namespaceUri, additionalLocations_);
    addElements(stage, L"area", namespaceUri, additionalAreas_);
    if (AltDestination.point_ != nullptr) appendAlternate(stage, namespaceUri);
  });
}

void SPFIBStageSpec::appendAlternate(const xml::Node& stage, std::wstring_view namespaceUri) const {
  const xml::Node alternate = addElement(stage, L"alternate", namespaceUri);
  addPlace(alternate, L"ades", namespaceUri, AltDestination.point_);
  addElement(alternate, L"level", namespaceUri, AltLevel());
  if (AltRoute() != nullptr) AltRoute()->appendTo(alternate, namespaceUri);
}

}  // namespace ktpnaips
