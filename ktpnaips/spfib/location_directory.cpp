#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/numbers.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/spfib/location_directory.h>

namespace ktpnaips {
namespace {

constexpr Operation locationDirectory{service::reference, L"loc-airspace-dir-rqs",
                                      L"loc-airspace-dir",
                                      inClass(L"submit", L"LocationDirRequest")};

/// A latitude makes the position; its longitude is needed then.
void readPosition(const xml::Node& from, LocAirspaceDetails& details) {
  withText(from, "naips:coord/naips:lat", [&](const std::wstring& latitude) {
    const auto position = std::make_shared<CoordinatePoint>();
    details.Coord(position);
    position->Lat(leadingNumber(latitude));
    position->Lon(leadingNumber(neededText(from, "naips:coord/naips:long")));
  });
}

}  // namespace

void LocAirspaceDirectoryRsp::extractData() {
  trapped(inClass(L"extractData", L"LocAirspaceDirectoryRsp"), [&] {
    for (const xml::Node& node : Payload().selectAll("naips:loc-airspace")) {
      const auto details = std::make_shared<LocAirspaceDetails>();
      readText(node, "naips:key", details->Key);
      readText(node, "naips:name", details->Name);
      readText(node, "naips:description", details->Description);
      readPosition(node, *details);
      Add(details);
    }
  });
}

LocAirspaceDirectoryRqs::LocAirspaceDirectoryRqs() : Request(locationDirectory) {}

void LocAirspaceDirectoryRqs::appendContent(const xml::Node& request,
                                            std::wstring_view namespaceUri) const {
  modBrevank::addElement(request, L"loc", namespaceUri, PartialName());
}

}  // namespace ktpnaips
