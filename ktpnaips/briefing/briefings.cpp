#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/xml_building.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ktpnaips {

using modBrevank::addAttribute;
using modBrevank::addElement;

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

struct Option {
  std::int32_t bit;
  std::wstring_view name;
};

constexpr std::array areaFlags{Option{0, L"met"}, Option{1, L"ntm"}, Option{2, L"hon"},
                               Option{3, L"charts"}, Option{4, L"mid-sigwx-gpwt"}};
constexpr std::int32_t highVariant = 5;

constexpr std::array locationFlags{Option{0, L"met"}, Option{1, L"ntm"}, Option{2, L"hon"},
                                   Option{3, L"sigmet"}};

constexpr std::array messageTypes{Option{0, L"TAF"},    Option{1, L"TTF"},  Option{2, L"METAR"},
                                  Option{3, L"SPECI"},  Option{4, L"AQNH"}, Option{5, L"SIGMET"},
                                  Option{7, L"AIRMET"}, Option{8, L"ATIS"}};

void addTexts(const xml::Node& request, std::wstring_view namespaceUri, std::wstring_view name,
              const std::vector<std::wstring>& texts) {
  for (const auto& text : texts) addElement(request, name, namespaceUri, text);
}

xml::Node addFlags(const xml::Node& request, std::wstring_view namespaceUri, const FlagWord& word,
                   std::span<const Option> options) {
  xml::Node flags = addElement(request, L"flags", namespaceUri);
  for (const auto& [bit, name] : options) {
    addAttribute(flags, name, namespaceUri, modBrevank::boolean(word.flag(bit)));
  }
  return flags;
}

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
  addTexts(request, namespaceUri, L"area", areas_);
  const xml::Node flags = addFlags(request, namespaceUri, *this, areaFlags);
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
  addTexts(request, namespaceUri, L"loc", locations_);
  addFlags(request, namespaceUri, *this, locationFlags);
}

MetBriefingRqs::MetBriefingRqs() : PeriodRequest(metBriefing) {}

void MetBriefingRqs::addLocation(std::wstring_view location) {
  addWithin(mostMetLocations, locations_, std::wstring(location));
}

void MetBriefingRqs::clearLocations() noexcept {
  locations_.clear();
}

void MetBriefingRqs::appendItems(const xml::Node& request, std::wstring_view namespaceUri) const {
  addTexts(request, namespaceUri, L"loc", locations_);
  const xml::Node types = addElement(request, L"types", namespaceUri);
  for (const auto& [bit, type] : messageTypes) {
    if (flag(bit)) addElement(types, L"message-type", namespaceUri, type);
  }
}

}  // namespace ktpnaips
