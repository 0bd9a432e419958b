#include "tests/simulator/documents.h"

#include <algorithm>
#include <utility>

namespace simtest {
namespace {

constexpr const char* account = "/naips/account-service";
constexpr const char* briefing = "/naips/briefing-service";
constexpr const char* reference = "/naips/reference-service";
constexpr const char* met = "/naips/met-service";
constexpr const char* flights = "/naips/flight-notification-service";

std::string group() {
  return element("group-id", element("group-name", "CLUB"));
}

std::vector<Document> accountDocuments() {
  return {{"ChangePassword",
           account,
           "change-password-rqs",
           "",
           "",
           {{element("new-password", "next")}, {element("email")}},
           ""}};
}

std::vector<Document> productDocuments() {
  return {
      {"FirstLastLight",
       briefing,
       "fl-ll-rqs",
       "",
       "",
       {{element("date", "2026-11-20")}, {element("point", loc("YSSY"))}},
       ""},
      {"Coordinates",
       briefing,
       "fl-ll-rqs",
       "",
       element("date", "2026-11-20") + "<ndd:point><ndd:coord>",
       {{element("lat", "-.250000")}, {element("long", "151.200000")}},
       "</ndd:coord></ndd:point>"},
      {"BearingDistance",
       briefing,
       "fl-ll-rqs",
       "",
       element("date", "2026-11-20") + "<ndd:point><ndd:bear-dist>",
       {{element("loc", "SY")}, {element("bear", "45")}, {element("dist", "025")}},
       "</ndd:bear-dist></ndd:point>"},
      {"Raim", briefing, "raim-rqs", "", "", {{element("loc", "YSSY"), true}}, ""},
      {"NotamList",
       briefing,
       "view-notam-list-for-spfib-rqs",
       "",
       "",
       {{element("number", "1001")}},
       ""},
      {"ChartDirectory", met, "chart-dir-rqs", "", "", {}, ""},
      {"Chart",
       met,
       "get-chart-rqs",
       "",
       "",
       {{element("key", "80001")}, {element("variant", " hi "), true}},
       ""},
  };
}

std::vector<Document> bulletinDocuments() {
  const std::string inStage =
      "<ndd:spfib>" + element("domestic", "true") + element("acid", "VHABC") + "<ndd:stage>";
  const std::vector<Child> whole = bulletin();
  const std::string rest =
      "</ndd:stage>" + joined({whole.begin() + 3, whole.end()}) + "</ndd:spfib>";
  return {
      {"BulletinRequest",
       briefing,
       "spfib-rqs",
       "",
       "",
       {{element("period",
                 element("from", "2026-11-20T22:00:00Z") + element("till", "2026-11-21T09:00:00Z")),
         true},
        {element("duration", "PT6H"), true},
        {group(), true},
        {element("spfib", joined(bulletin()))}},
       ""},
      {"Bulletin", briefing, "spfib-rqs", "", "<ndd:spfib>", bulletin(), "</ndd:spfib>"},
      {"BulletinStage", briefing, "spfib-rqs", "", inStage, bulletinStage(), rest},
      {"BulletinAlternate",
       briefing,
       "spfib-rqs",
       "",
       inStage + joined(without(bulletinStage(), "alternate")) + "<ndd:alternate>",
       {{element("ades", loc("YMAV"))},
        {element("level", "F120")},
        {element("route", element("route-id", "A1")), true}},
       "</ndd:alternate>" + rest},
      {"BulletinLookup", briefing, "get-spfib-rqs", "", "", {{element("number", "1001")}}, ""},
      {"BulletinUpdate",
       briefing,
       "update-spfib-rqs",
       "",
       "",
       {{element("period",
                 element("from", "2026-11-20T22:00:00Z") + element("till", "2026-11-21T09:00:00Z")),
         true},
        {element("duration", "6"), true},
        {element("number", "1001")},
        {element("stage", "", "include='true'")}},
       ""},
      {"BulletinDirectory", briefing, "active-spfib-dir-rqs", "", "", {{group(), true}}, ""},
  };
}

std::vector<Document> referenceDocuments() {
  const std::vector<Child> stage = {{element("adep", "YSSY")},
                                    {element("ades", "YMML")},
                                    {element("etd", "2026-11-20T22:00:00Z")},
                                    {element("route", "DCT WOL DCT"), true}};
  return {
      {"WindProfile",
       briefing,
       "wind-temp-profile-rqs",
       "",
       "",
       {{element("stage", joined(stage)), true}, {element("tas", "N0450")}},
       ""},
      {"WindStage", briefing, "wind-temp-profile-rqs", "", "<ndd:stage>", stage,
       "</ndd:stage>" + element("tas", "N0450")},
      {"RouteDirectory",
       reference,
       "route-dir-rqs",
       "",
       "",
       {{element("adep", "YSSY")}, {element("ades", "YMML")}},
       ""},
      {"Route",
       reference,
       "get-route-rqs",
       "",
       "<ndd:route>",
       {{element("adep", "YSSY")}, {element("ades", "YMML")}, {element("code", "A1")}},
       "</ndd:route>"},
      {"LocationDirectory",
       reference,
       "loc-airspace-dir-rqs",
       "",
       "",
       {{element("loc", "SYD")}},
       ""},
      {"GeneralMetDirectory", briefing, "general-met-dir-rqs", "", "", {}, ""},
      {"GeneralMet",
       briefing,
       "general-met-brief-rqs",
       "",
       "",
       {{element("name", "SPACE WEATHER ADVISORY")}, {element("type", "SWX")}},
       ""},
  };
}

// A sequence inside one element of the stage of a flight plan.
Document inFlightStage(const std::string& label, const std::string& name, bool newForm,
                       const std::string& before, std::vector<Child> sequence,
                       const std::string& after) {
  const std::vector<Child> stage = flightStage(newForm);
  const auto at =
      std::ranges::find_if(stage, [&](const Child& child) { return child.name() == name; });
  return {label,
          flights,
          "submit-icao-fn-rqs",
          " ignore-atyp-reg='false'",
          "<ndd:flight-notif>" + element("domestic", "true") + "<ndd:stage number='1'>" +
              joined({stage.begin(), at}) + "<ndd:" + name + ">" + before,
          std::move(sequence),
          after + "</ndd:" + name + ">" + joined({at + 1, stage.end()}) +
              "</ndd:stage></ndd:flight-notif>"};
}

Document wholeFlightStage(const std::string& label, bool newForm) {
  return {label,
          flights,
          "submit-icao-fn-rqs",
          " ignore-atyp-reg='true'",
          "<ndd:flight-notif>" + element("domestic", "true") + "<ndd:stage number='1'>",
          flightStage(newForm),
          "</ndd:stage></ndd:flight-notif>" + group()};
}

std::vector<Document> flightPlanDocuments() {
  std::vector<Child> inSupplement = supplement(true);
  const std::string dinghiesBefore = joined({inSupplement.begin(), inSupplement.begin() + 5});
  const std::string dinghiesAfter = joined({inSupplement.begin() + 6, inSupplement.end()});
  return {
      {"FlightPlan",
       flights,
       "submit-icao-fn-rqs",
       " ignore-atyp-reg='false'",
       "<ndd:flight-notif>",
       {{element("domestic", "false")}, {flightStageElement(flightStage(true)), true}},
       "</ndd:flight-notif>"},
      wholeFlightStage("FlightStageInTheNewerForm", true),
      wholeFlightStage("FlightStageInTheOlderForm", false),
      inFlightStage("FlightRoute", "route", true, "", flightRoute(), ""),
      inFlightStage("RouteSegment", "route", true,
                    element("speed", "N0450") + element("level", "F350") + "<ndd:segment>",
                    routeSegment(), "</ndd:segment>"),
      inFlightStage("OtherInformationInTheNewerForm", "other-info", true, "", otherInfo(true), ""),
      inFlightStage("OtherInformationInTheOlderForm", "other-info", false, "", otherInfo(false),
                    ""),
      inFlightStage("SearchAndRescueTime", "sartimeinfo", true, "", searchAndRescueTime(), ""),
      inFlightStage("Supplement", "suppl-info", true, "", supplement(true), ""),
      inFlightStage("SupplementWithDomesticSurvivalEquipment", "suppl-info", false, "",
                    supplement(false), ""),
      inFlightStage("Dinghies", "suppl-info", true, dinghiesBefore + "<ndd:dinghies>", dinghies(),
                    "</ndd:dinghies>" + dinghiesAfter),
  };
}

std::vector<Document> sartimeDocuments() {
  const std::vector<Child> whole = sartimeNotification();
  return {
      {"SartimeNotification", flights, "submit-sar-fn-rqs", "", "<ndd:flight-notif>",
       sartimeNotification(), "</ndd:flight-notif>" + group()},
      {"SartimeStage", flights, "submit-sar-fn-rqs", "",
       "<ndd:flight-notif>" + element("acid", "VHABC") + element("atyp", "C172") +
           "<ndd:stage number='1'>",
       sartimeStage(),
       "</ndd:stage>" + joined({whole.begin() + 3, whole.end()}) + "</ndd:flight-notif>"},
      {"FlightDirectory",
       flights,
       "active-fn-dir-rqs",
       "",
       "",
       {{group(), true}, {element("acid", "VHABC"), true}},
       ""},
  };
}

}  // namespace

std::string Document::body(const std::vector<Child>& sequence) const {
  return "<ndd:" + request + " source='orvalix' requestor='DEMO' password='demo-pilot'" +
         attributes + ">" + before + joined(sequence) + after + "</ndd:" + request + ">";
}

std::vector<Document> documents() {
  std::vector<Document> all;
  for (const auto& some : {accountDocuments(), productDocuments(), bulletinDocuments(),
                           referenceDocuments(), flightPlanDocuments(), sartimeDocuments()}) {
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

}  // namespace simtest
