#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/flag_attributes.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/xml_building.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace ktpnaips {

using modBrevank::addAttribute;
using modBrevank::addElement;
using modBrevank::addElements;

namespace {

constexpr Operation areaBriefing{service::briefing, L"area-brief-rqs", L"area-brief-rqs",
                                 inClass(L"submit", L"AreaBriefRequest")};

constexpr Operation locationBriefing{service::briefing, L"loc-brief-rqs", L"loc-brief-rqs",
                                     inClass(L"submit", L"LocationBriefRequest"),
                                     appendToOf(L"LocationBriefRequest")};

constexpr Operation metBriefing{service::briefing, L"met-brief-rqs", L"met-brief-rqs",
                                inClass(L"submit", L"MetBriefRequest"),
                                appendToOf(L"LocationBriefRequest")};

constexpr std::size_t mostAreas = 5;
constexpr std::size_t mostLocations = 12;
constexpr std::size_t mostMetLocations = 4;

constexpr std::array areaFlags{NamedFlag{0, L"met"}, NamedFlag{1, L"ntm"}, NamedFlag{2, L"hon"},
                               NamedFlag{3, L"charts"}, NamedFlag{4, L"mid-sigwx-gpwt"}};
constexpr std::int32_t highVariant = 5;

constexpr std::array locationFlags{NamedFlag{0, L"met"}, NamedFlag{1, L"ntm"}, NamedFlag{2, L"hon"},
                                   NamedFlag{3, L"sigmet"}};

constexpr std::array messageTypes{
    NamedFlag{0, L"TAF"},  NamedFlag{1, L"TTF"},    NamedFlag{2, L"METAR"},  NamedFlag{3, L"SPECI"},
    NamedFlag{4, L"AQNH"}, NamedFlag{5, L"SIGMET"}, NamedFlag{7, L"AIRMET"}, NamedFlag{8, L"ATIS"}};

}  // namespace

void PeriodRequest::appendContent(const xml::Node& request, std::wstring_view namespaceUri) const {
  briefingReq_.appendTo(request, namespaceUri);
  appendItems(request, namespaceUri);
}

AreaBriefingRqs::AreaBriefingRqs() : PeriodRequest(areaBriefing) {}

void AreaBriefingRqs::addArea(std::wstring_view area) {
  addWithin(mostAreas, areas_, std::wstring(area));
}

void AreaBriefingRqs::clearAreas() noexcept {
  areas_.clear();
}

void AreaBriefingRqs::appendItems(const xml::Node& request, std::wstring_view namespaceUri) const {
  addElements(request, L"area", namespaceUri, areas_);
  const xml::Node flags = addFlags(request, L"flags", namespaceUri, *this, areaFlags);
  addAttribute(flags, L"variant", namespaceUri, flag(highVariant) ? L"HI" : L"LO");
}

LocationBriefingRqs::LocationBriefingRqs() : PeriodRequest(locationBriefing) {}

void LocationBriefingRqs::addLocation(std::wstring_view location) {
  addWithin(mostLocations, locations_, std::wstring(location));
}

void LocationBriefingRqs::clearLocations() noexcept {
  locations_.clear();
}

void LocationBriefingRqs::appendItems(const xml::Node& request,
                                      std::wstring_view namespaceUri) const {
  addElements(request, L"loc", namespaceUri, locations_);
  addFlags(request, L"flags", namespaceUri, *this, locationFlags);
}

MetBriefingRqs::MetBriefingRqs() : PeriodRequest(metBriefing) {}

void MetBriefingRqs::addLocation(std::wstring_view location) {
  addWithin(mostMetLocations, locations_, std::wstring(location));
}

void MetBriefingRqs::clearLocations() noexcept {
  locations_.clear();
}

void MetBriefingRqs::appendItems(const xml::Node& request, std::wstring_view namespaceUri) const {
  addElements(request, L"loc", namespaceUri, locations_);
  const xml::Node types = addElement(request, L"types", namespaceUri);
  for (const auto& [bit, type] : messageTypes) {
    if (flag(bit)) addElement(types, L"message-type", namespaceUri, type);
  }
}

}  // namespace ktpnaips
