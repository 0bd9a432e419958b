#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/text_items.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/spfib/wind_temp_profile.h>

#include <cstddef>
#include <utility>

namespace ktpnaips {

using modBrevank::addElement;

namespace {

constexpr Operation windTempProfile{
    service::briefing, L"wind-temp-profile-rqs", L"wind-temp-profile-rqs",
    inClass(L"submit", L"WindTempProfileRequest"), appendToOf(L"WindTempProfileRequest")};

constexpr std::size_t mostStages = 10;

}  // namespace

std::wstring rule::DirectWhenEmpty::apply(std::wstring_view value) {
  std::wstring route = Utils::cleanString(value);
  return route.empty() ? L"DCT" : route;
}

void WindTempStage::appendTo(const xml::Node& stage, std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"SPFIBStage"), [&] {
    addElement(stage, L"adep", namespaceUri, Depart());
    addElement(stage, L"ades", namespaceUri, Destination());
    addElement(stage, L"etd", namespaceUri, isoDateTime(ETD()));
    if (!Route().empty()) addElement(stage, L"route", namespaceUri, Route());
  });
}

WindTempProfileRqs::WindTempProfileRqs() : Request(windTempProfile) {}

void WindTempProfileRqs::addStage(std::shared_ptr<WindTempStage> stage) {
  if (stage != nullptr) addWithin(mostStages, stages_, std::move(stage));
}

void WindTempProfileRqs::appendContent(const xml::Node& request,
                                       std::wstring_view namespaceUri) const {
  for (const auto& stage : stages_) addPart(request, L"stage", namespaceUri, stage.get());
  addElement(request, L"tas", namespaceUri, TAS());
}

}  // namespace ktpnaips
