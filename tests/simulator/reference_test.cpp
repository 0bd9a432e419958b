#include <gmock/gmock.h>

#include <string>

#include "tests/simulator/answers.h"
#include "tests/simulator/requests.h"
#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class Reference : public ServiceTest {
 protected:
  std::string refer(std::string_view name, std::string_view children) {
    return answer("/naips/reference-service", request(name, children));
  }
  std::string routes(const std::string& scope, const std::string& adep, const std::string& ades) {
    return answer("/naips/reference-service",
                  "<ndd:route-dir-rqs source='x' requestor='DEMO' password='demo-pilot' scope='" +
                      scope + "'>" + element("adep", adep) + element("ades", ades) +
                      "</ndd:route-dir-rqs>");
  }
  std::string places(const std::string& partial) {
    return refer("loc-airspace-dir-rqs", element("loc", partial));
  }
};

TEST_F(Reference, ListsTheRoutesBetweenTwoAerodromes) {
  const std::string text = routes("domestic", "YSSY", "YMML");
  EXPECT_THAT(text,
              HasSubstr("<naips:route><naips:adep>YSSY</naips:adep><naips:ades>YMML"
                        "</naips:ades><naips:code>A1</naips:code><naips:description>"
                        "SYDNEY - MELBOURNE VIA WOL (JET)</naips:description></naips:route>"));
  EXPECT_THAT(texts(text, "code"), ElementsAre("A1", "B1"));
  EXPECT_THAT(texts(routes("domestic", "YSSY", "YPPH"), "code"), IsEmpty());
}

TEST_F(Reference, ListsInternationalRoutesInTheirScopeOnly) {
  EXPECT_THAT(texts(routes("domestic", "YSSY", ""), "ades"), Not(Contains("NZAA")));
  EXPECT_THAT(texts(routes("international", "YSSY", ""), "ades"), Contains("NZAA"));
  EXPECT_THAT(texts(routes("international", "YSSY", ""), "ades"), Contains("YMML"));
}

TEST_F(Reference, TellsOneRouteWithItsText) {
  const auto get = [&](const char* code) {
    return refer("get-route-rqs",
                 element("route", element("adep", "YSSY") + element("ades", "YMML") +
                                      element("code", code)));
  };
  EXPECT_EQ(text(get("A1"), "route-text"), "DCT WOL H65 RAZZI Q29 LIZZI DCT");
  EXPECT_THAT(get("Z9"), HasSubstr("<naips:info>Unknown route: YSSY YMML Z9</naips:info>"));
}

TEST_F(Reference, FindsPlacesByPartOfTheirNameInDecimalDegrees) {
  const std::string found = places("SYD");
  EXPECT_THAT(found, HasSubstr("<naips:key>YSSY</naips:key>"));
  EXPECT_THAT(found, HasSubstr("<naips:coord><naips:lat>-33.9"));
  EXPECT_THAT(found, HasSubstr("</naips:lat><naips:long>151.1"));
  EXPECT_THAT(places(" ymml "), HasSubstr("<naips:key>YMML</naips:key>"));
}

TEST_F(Reference, FindsAirspacesWhichHaveNoPosition) {
  EXPECT_THAT(places("BRISBANE FIR"),
              HasSubstr("<naips:loc-airspace><naips:key>YBBB</naips:key><naips:name>BRISBANE FIR"
                        "</naips:name><naips:description>FLIGHT INFORMATION REGION"
                        "</naips:description></naips:loc-airspace>"));
}

TEST_F(Reference, FindsNothingForNothing) {
  EXPECT_THAT(places(""), HasSubstr(" status=\"SUCCESS\"/>"));
  EXPECT_THAT(places("QQQQQ"), HasSubstr(" status=\"SUCCESS\"/>"));
}

}  // namespace
}  // namespace simtest
