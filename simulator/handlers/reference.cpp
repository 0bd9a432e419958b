#include <optional>
#include <string>

#include "simulator/data/areas.h"
#include "simulator/data/geodesy.h"
#include "simulator/data/locations.h"
#include "simulator/data/routes.h"
#include "simulator/data/text.h"
#include "simulator/registry.h"

namespace sim::handlers {
namespace {

void describe(Element& element, const StandardRoute& route) {
  element.add("adep", std::string(route.adep));
  element.add("ades", std::string(route.ades));
  element.add("code", std::string(route.code));
  element.add("description", std::string(route.description));
}

void routeDirectory(const Call& call, Element& answer) {
  const bool international = trimmedUpperCase(call.request.attribute("scope")) == "INTERNATIONAL";
  for (const StandardRoute* route :
       routesBetween(trimmedUpperCase(call.request.childText("adep")),
                     trimmedUpperCase(call.request.childText("ades")), !international)) {
    describe(answer.add("route"), *route);
  }
}

void getRoute(const Call& call, Element& answer) {
  const XmlView wanted = *call.request.child("route");
  const std::string adep = wanted.childText("adep");
  const std::string ades = wanted.childText("ades");
  const std::string code = wanted.childText("code");
  const StandardRoute* route = findRoute(adep, ades, code);
  if (route == nullptr) {
    throw Refusal("Unknown route: " + adep + ' ' + ades + ' ' + code);
  }
  Element& element = answer.add("route");
  describe(element, *route);
  element.add("route-text", std::string(route->waypoints));
}

std::string kindOf(const Location& location) {
  switch (location.kind) {
    case 'A':
      return "AERODROME";
    case 'N':
      return "NAVIGATION AID";
    default:
      return "WAYPOINT";
  }
}

void addLocation(Element& answer, const Location& location) {
  Element& entry = answer.add("loc-airspace");
  entry.add("key", std::string(location.code));
  entry.add("name", std::string(location.name));
  Element& coord = entry.add("coord");
  coord.add("lat", decimalDegrees(location.latitude));
  coord.add("long", decimalDegrees(location.longitude));
  entry.add("description", kindOf(location) + ' ' + std::string(location.state));
}

// Areas have no one position.
void addAirspaces(Element& answer, const std::string& partial) {
  for (const ForecastArea& area : areas()) {
    if (area.code.starts_with(partial) || area.name.find(partial) != std::string_view::npos) {
      Element& entry = answer.add("loc-airspace");
      entry.add("key", std::string(area.code));
      entry.add("name", std::string(area.name));
      entry.add("description", isFir(area) ? "FLIGHT INFORMATION REGION" : "FORECAST AREA");
    }
  }
}

void locationDirectory(const Call& call, Element& answer) {
  const std::string partial = trimmedUpperCase(call.request.childText("loc"));
  if (partial.empty()) {
    return;
  }
  for (const Location* location : search(partial)) {
    addLocation(answer, *location);
  }
  addAirspaces(answer, partial);
}

}  // namespace

void reference(Registry& registry, State&) {
  registry.add("route-dir-rqs", Endpoint::reference, routeDirectory);
  registry.add("get-route-rqs", Endpoint::reference, getRoute);
  registry.add("loc-airspace-dir-rqs", Endpoint::reference, locationDirectory);
}

}  // namespace sim::handlers
