#include <ktpnaips/briefing/light.h>
#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/text_items.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/geo/point_from_name.h>
#include <ktpnaips/platform/clock.h>

namespace ktpnaips {
namespace {

constexpr Operation firstLastLight{service::briefing, L"fl-ll-rqs", L"fl-ll-rqs",
                                   inClass(L"submit", L"FirstLastLightRequest"),
                                   appendToOf(L"FirstLastLightRequest")};

}  // namespace

void FirstLastLightRsp::extractData() {
  trapped(inClass(L"extractData", L"FirstLastLightRsp"), [&] {
    const xml::Node payload = Payload();
    readText(payload, "naips:date", ForDate.value);
    readText(payload, "naips:first", FirstLight.value);
    readText(payload, "naips:last", LastLight.value);
  });
}

FirstLastLightRqs::FirstLastLightRqs() : Request(firstLastLight), ForDate(clock::now()) {}

void FirstLastLightRqs::setNamed(std::wstring_view name) {
  Point(Utils::pointFromName(name));
}

void FirstLastLightRqs::setLatLon(double lat, double lon) {
  Point(std::make_shared<CoordinatePoint>(lat, lon));
}

void FirstLastLightRqs::setBearingDistance(std::wstring_view name, std::int16_t bearing,
                                           std::int16_t distance) {
  Point(std::make_shared<BearingDistPoint>(name, bearing, distance));
}

void FirstLastLightRqs::appendContent(const xml::Node& request,
                                      std::wstring_view namespaceUri) const {
  modBrevank::addElement(request, L"date", namespaceUri, isoDate(ForDate()));
  addPart(request, L"point", namespaceUri, Point().get());
}

}  // namespace ktpnaips
