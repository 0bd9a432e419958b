#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/spfib/route_directory.h>

namespace ktpnaips {

using modBrevank::addElement;

namespace {

constexpr Operation routeDirectory{service::reference, L"route-dir-rqs", L"route-dir",
                                   inClass(L"submit", L"RouteDirectoryRequest")};

constexpr Operation getRoute{service::reference, L"get-route-rqs", L"get-route",
                             inClass(L"submit", L"GetRouteRequest"), appendToOf(L"GetRoute")};

constexpr std::wstring_view domestic = L"domestic";
constexpr std::wstring_view international = L"international";

}  // namespace

void RouteDirectoryRsp::extractData() {
  trapped(inClass(L"extractData", L"RouteDirectoryRsp"), [&] {
    for (const xml::Node& node : Payload().selectAll("naips:route")) {
      const auto route = std::make_shared<RouteSummary>();
      readText(node, "naips:adep", route->Depart);
      readText(node, "naips:ades", route->Destination);
      readText(node, "naips:code", route->RouteCode);
      readText(node, "naips:description", route->Description);
      Add(route);
    }
  });
}

RouteDirectoryRqs::RouteDirectoryRqs() : Request(routeDirectory) {
  DomesticOnly(true);
}

bool RouteDirectoryRqs::DomesticOnly() const {
  return abstractReq().Scope() == domestic;
}

void RouteDirectoryRqs::DomesticOnly(bool value) {
  abstractReq().Scope(value ? domestic : international);
}

void RouteDirectoryRqs::appendContent(const xml::Node& request, std::wstring_view) const {
  const std::wstring& schema = Deployment::current().schemaNamespace;
  addElement(request, L"adep", schema, Depart());
  addElement(request, L"ades", schema, Destination());
}

GetRouteRqs::GetRouteRqs() : Request(getRoute) {}

void GetRouteRqs::appendContent(const xml::Node& request, std::wstring_view namespaceUri) const {
  const xml::Node route = addElement(request, L"route", namespaceUri);
  addElement(route, L"adep", namespaceUri, Depart());
  addElement(route, L"ades", namespaceUri, Destination());
  addElement(route, L"code", namespaceUri, Code());
}

}  // namespace ktpnaips
