#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/property_output.h"
#include "cli/text_output.h"

#include <ktpnaips/platform/text.h>
#include <ktpnaips/spfib/route_directory.h>

#include <memory>

namespace cli {
namespace {

using ktpnaips::AbstractResponse;
using ktpnaips::GetRouteRqs;
using ktpnaips::RouteDirectoryRqs;
using ktpnaips::RouteSummary;

constexpr Shown<RouteSummary> route[] = {
    {"Depart", "FROM", valueOf<&RouteSummary::Depart>},
    {"Destination", "TO", valueOf<&RouteSummary::Destination>},
    {"RouteCode", "CODE", valueOf<&RouteSummary::RouteCode>},
    {"Description", "ROUTE", valueOf<&RouteSummary::Description>, true}};

template <class Request>
void addAerodromes(CLI::App& app, const std::shared_ptr<Request>& request) {
  addText(app, "DEP", "Departure aerodrome", [=](auto text) { request->Depart(text); })->required();
  addText(app, "DEST", "Destination aerodrome", [=](auto text) {
    request->Destination(text);
  })->required();
}

void routeFields(const AbstractResponse& response, JsonObject& json) {
  const auto payload = response.Payload();
  json.set("Payload", payload ? Json(payload.serialise()) : Json());
}

void printRoute(const AbstractResponse& response) {
  printText(ktpnaips::text::fromUtf8(response.Payload().serialise()));
}

const Registered listRoutes({"route", "list", "List the standard routes between two aerodromes",
                             "naips route list YSSY YMML", [](CLI::App& app) -> Run {
                               const auto request = std::make_shared<RouteDirectoryRqs>();
                               addAerodromes(app, request);
                               addFlag(app, "--international", "International routes too",
                                       [=] { request->DomesticOnly(false); });
                               return listing(request, route);
                             }});

const Registered getRoute({"route", "get", "Fetch a standard route", "naips route get YSSY YMML A1",
                           [](CLI::App& app) -> Run {
                             const auto request = std::make_shared<GetRouteRqs>();
                             addAerodromes(app, request);
                             addText(app, "CODE", "Code of the route", [=](auto text) {
                               request->Code(text);
                             })->required();
                             return [=](Session& session) {
                               session.submit(*request, routeFields, printRoute);
                             };
                           }});

}  // namespace
}  // namespace cli
