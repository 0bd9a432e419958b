#include <gmock/gmock.h>

#include <string>

#include "tests/simulator/requests.h"
#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::HasSubstr;

class StrictService : public ServiceTest {
 protected:
  void SetUp() override {
    ServiceTest::SetUp();
    options.strict = true;
  }
  std::string ask(const std::vector<Child>& spec, const std::string& before = "") {
    return answer("/naips/briefing-service",
                  request("spfib-rqs", before + element("spfib", joined(spec))));
  }
  std::string askWith(const Child& stageChild) {
    return ask(with(bulletin(), {element("stage", joined(with(bulletinStage(), stageChild)))}));
  }
  std::string file(const std::string& stages, const std::string& after = "") {
    return answer("/naips/flight-notification-service",
                  "<ndd:submit-icao-fn-rqs source='x' requestor='DEMO' password='demo-pilot'"
                  " ignore-atyp-reg='false'>" +
                      element("flight-notif", element("domestic", "true") + stages) + after +
                      "</ndd:submit-icao-fn-rqs>");
  }
  std::string fileWith(const Child& stageChild) {
    return file(flightStageElement(with(flightStage(true), stageChild)));
  }
  std::string fileSartime(const std::vector<Child>& notification) {
    return answer("/naips/flight-notification-service",
                  request("submit-sar-fn-rqs", element("flight-notif", joined(notification))));
  }
  std::string winds(const std::string& stages) {
    return answer("/naips/briefing-service",
                  request("wind-temp-profile-rqs", stages + element("tas", "N0100")));
  }
};

auto refuses(const std::string& info) {
  return HasSubstr(" status=\"FAILURE\"><naips:info>" + info + "</naips:info>");
}

constexpr const char* past = "2026-11-20T05:59:00Z";
const auto inThePast =
    refuses("The estimated time of departure is in the past: 2026-11-20T05:59:00Z");

const std::string foreignGroup =
    "<ndd:group-id><ndd:group-name>OTHERS</ndd:group-name></ndd:group-id>";

TEST_F(StrictService, LetsGoodRequestsPass) {
  EXPECT_THAT(ask(bulletin()), HasSubstr("SUCCESS"));
  EXPECT_THAT(file(flightStageElement(flightStage(true))), HasSubstr("SUCCESS"));
  EXPECT_THAT(fileSartime(sartimeNotification()), HasSubstr("SUCCESS"));
}

TEST_F(StrictService, RefusesFlightsWithoutStages) {
  const auto noStages = refuses("The flight has no stages");
  EXPECT_THAT(ask(without(bulletin(), "stage")), noStages);
  EXPECT_THAT(file(""), noStages);
  EXPECT_THAT(fileSartime({}), noStages);
  EXPECT_THAT(fileSartime(without(sartimeNotification(), "stage")), noStages);
  EXPECT_THAT(winds(""), noStages);
}

TEST_F(StrictService, RefusesFlightsWithoutAircraft) {
  const auto noAircraft = refuses("The aircraft identification is missing");
  EXPECT_THAT(ask(with(bulletin(), {element("acid", "NOSEND")})), noAircraft);
  EXPECT_THAT(fileWith({element("acid", "NOSEND")}), noAircraft);
  EXPECT_THAT(fileSartime(with(sartimeNotification(), {element("acid")})), noAircraft);
}

TEST_F(StrictService, RefusesUnknownPlaces) {
  EXPECT_THAT(askWith({element("adep", loc("QQQQ"))}), refuses("Unknown place: QQQQ"));
  EXPECT_THAT(askWith({element("ades")}), refuses("A place is missing"));
  EXPECT_THAT(askWith({element("route", element("route-id", "Z9"))}),
              refuses("Unknown route: YSSY YMML Z9"));
  EXPECT_THAT(fileWith({element("adep", "UNKNOWN")}), refuses("Unknown aerodrome: UNKNOWN"));
  EXPECT_THAT(fileWith({element("ades", "WOL")}), refuses("Unknown aerodrome: WOL"));
  EXPECT_THAT(fileWith({element("altn", "QQQQ")}), refuses("Unknown aerodrome: QQQQ"));
  EXPECT_THAT(winds(element("stage", element("adep", "YSSY") + element("ades", "QQQQ") +
                                         element("etd", "2026-11-20T22:00:00Z"))),
              refuses("Unknown place: QQQQ"));
}

TEST_F(StrictService, KnowsAerodromesInAnyCaseAbroadAndWithoutACode) {
  for (const char* code : {" yscb ", "NZAA", "ZZZZ"}) {
    EXPECT_THAT(fileWith({element("adep", code)}), HasSubstr("SUCCESS")) << code;
  }
}

TEST_F(StrictService, RefusesDeparturesInThePast) {
  EXPECT_THAT(askWith({element("etd", past)}), inThePast);
  EXPECT_THAT(fileWith({element("etd", past)}), inThePast);
  EXPECT_THAT(
      fileSartime(with(
          sartimeNotification(),
          {element("stage", joined(with(sartimeStage(), {element("etd", past)})), "number='1'")})),
      inThePast);
  EXPECT_THAT(winds(element("stage", element("adep", "YSSY") + element("ades", "YSCB") +
                                         element("etd", past))),
              inThePast);
  EXPECT_THAT(fileWith({element("etd", "2026-11-20T06:00:00Z")}), HasSubstr("SUCCESS"));
}

TEST_F(StrictService, RefusesGroupsThatTheAccountIsNotIn) {
  const auto foreign = refuses("You are not in the group OTHERS");
  EXPECT_THAT(ask(bulletin(), foreignGroup), foreign);
  EXPECT_THAT(file(flightStageElement(flightStage(true)), foreignGroup), foreign);
  EXPECT_THAT(
      answer("/naips/flight-notification-service", request("active-fn-dir-rqs", foreignGroup)),
      foreign);
  EXPECT_THAT(answer("/naips/briefing-service", request("active-spfib-dir-rqs", foreignGroup)),
              foreign);
}

TEST_F(StrictService, RefusesAnUpdateOfMoreStagesThanABulletinHas) {
  const std::string stage = element("stage", "", "include='true'");
  EXPECT_THAT(answer("/naips/briefing-service",
                     request("update-spfib-rqs", element("number", "1001") + stage + stage)),
              refuses("Bulletin 1001 has fewer stages"));
}

TEST_F(StrictService, KeepsNothingOfWhatItRefused) {
  ask(without(bulletin(), "stage"));
  fileWith({element("etd", past)});
  EXPECT_THAT(
      answer("/naips/briefing-service", request("get-spfib-rqs", element("number", "1002"))),
      refuses("No bulletin 1002 is held for you"));
  EXPECT_THAT(answer("/naips/flight-notification-service",
                     request("active-fn-dir-rqs", element("acid", "VHABC"))),
              HasSubstr(" status=\"SUCCESS\"/>"));
}

}  // namespace
}  // namespace simtest
