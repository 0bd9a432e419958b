#include <ktpnaips/briefing/raim.h>
#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/xml_building.h>

#include <cstddef>

namespace ktpnaips {
namespace {

constexpr Operation raim{service::briefing, L"raim-rqs", L"raim-rqs",
                         inClass(L"submit", L"RAIMRequest")};

constexpr std::size_t mostLocations = 20;

}  // namespace

RAIMRqs::RAIMRqs() : Request(raim) {}

void RAIMRqs::addLocation(std::wstring_view name) {
  addCleanedWithin(mostLocations, locations_, name);
}

void RAIMRqs::appendContent(const xml::Node& request, std::wstring_view namespaceUri) const {
  modBrevank::addElements(request, L"loc", namespaceUri, locations_);
}

}  // namespace ktpnaips
