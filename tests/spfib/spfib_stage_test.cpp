#include <ktpnaips/spfib/spfib_stage.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/date_time.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/local_clock.h"
#include "tests/support/parts.h"

namespace ktpnaips {
namespace {

using test::at;
using test::part;
using test::written;

/// A stage with all that is needed: from YSSY to YMML.
class BulletinStage : public testing::Test {
 protected:
  BulletinStage() {
    stage.ETD(at(2026, 11, 16, 22));
    stage.Departing(L"yssy");
    stage.Destination(L"ymml");
    stage.Route(std::make_shared<SPFIBRoute>());
  }

  SPFIBStageSpec stage;
};

const std::string departing = "<ndd:adep><ndd:loc>YSSY</ndd:loc></ndd:adep>";
const std::string upToDestination =
    departing +
    "<ndd:etd>2026-11-16T22:00:00Z</ndd:etd><ndd:ades><ndd:loc>YMML</ndd:loc></ndd:ades>";
const std::string upToLevel = upToDestination +
                              "<ndd:weight-category>L</ndd:weight-category>"
                              "<ndd:level>F180</ndd:level>";

const test::Reports missingPart{test::missingObject(L"SPFIBStage")};

TEST_F(BulletinStage, HasItsDefaults) {
  const DateTime before = test::localNow();
  const SPFIBStageSpec fresh;
  EXPECT_GE(fresh.ETD(), before);
  EXPECT_LE(fresh.ETD(), test::localNow());
  EXPECT_EQ(fresh.WeightCat(), L"L");
  EXPECT_EQ(fresh.Departing(), L"");
  EXPECT_EQ(fresh.Destination(), L"");
  EXPECT_EQ(fresh.Level(), L"F180");
  EXPECT_EQ(fresh.AltDestination(), L"");
  EXPECT_EQ(fresh.AltLevel(), L"");
  EXPECT_EQ(fresh.Route(), nullptr);
  EXPECT_EQ(fresh.AltRoute(), nullptr);
}

TEST_F(BulletinStage, WritesWhatIsNeededWithItsDefaults) {
  EXPECT_EQ(written(stage), part(upToLevel));
}

TEST_F(BulletinStage, WritesEverythingInItsOrder) {
  stage.AltLevel(L"F120");
  stage.AltDestination(L"ymav");
  stage.AltRoute(std::make_shared<SPFIBRoute>());
  stage.AltRoute()->RouteCode(L"h2");
  stage.addAdditionalArea(L"20");
  stage.addAdditionalLocation(L"yscb");
  stage.addAdditionalLocation(L"ymay");
  stage.Route()->addNamed(L"wol");
  stage.Route()->addLatLon(-35.5, 149.25);
  stage.Level(L"F350");
  EXPECT_EQ(written(stage),
            part(upToDestination +
                 "<ndd:weight-category>L</ndd:weight-category><ndd:level>F350</ndd:level>"
                 "<ndd:route><ndd:waypoints><ndd:loc>WOL</ndd:loc></ndd:waypoints>"
                 "<ndd:waypoints><ndd:coord><ndd:lat>-35.500000</ndd:lat>"
                 "<ndd:long>149.250000</ndd:long></ndd:coord></ndd:waypoints></ndd:route>"
                 "<ndd:additional-loc>YSCB</ndd:additional-loc>"
                 "<ndd:additional-loc>YMAY</ndd:additional-loc><ndd:area>20</ndd:area>"
                 "<ndd:alternate><ndd:ades><ndd:loc>YMAV</ndd:loc></ndd:ades>"
                 "<ndd:level>F120</ndd:level>"
                 "<ndd:route><ndd:route-id>H2</ndd:route-id></ndd:route></ndd:alternate>"));
}

TEST_F(BulletinStage, ReadsPlacesBackAsTheirPoints) {
  EXPECT_EQ(stage.Departing(), L"YSSY");
  stage.Departing(L" sy045025");
  EXPECT_EQ(stage.Departing(), L"SY045025");
  stage.Destination(L" sy360025 ");
  EXPECT_EQ(stage.Destination(), L"SY360025");
  stage.AltDestination(L"sy005001");
  EXPECT_EQ(stage.AltDestination(), L"SY005001");
  EXPECT_EQ(written(stage),
            part("<ndd:adep><ndd:bear-dist><ndd:loc>SY</ndd:loc><ndd:bear>45</ndd:bear>"
                 "<ndd:dist>025</ndd:dist></ndd:bear-dist></ndd:adep>"
                 "<ndd:etd>2026-11-16T22:00:00Z</ndd:etd>"
                 "<ndd:ades><ndd:loc>SY360025</ndd:loc></ndd:ades>"
                 "<ndd:weight-category>L</ndd:weight-category><ndd:level>F180</ndd:level>"
                 "<ndd:alternate><ndd:ades><ndd:bear-dist><ndd:loc>SY</ndd:loc>"
                 "<ndd:bear>5</ndd:bear><ndd:dist>001</ndd:dist></ndd:bear-dist></ndd:ades>"
                 "<ndd:level/></ndd:alternate>"));
}

TEST_F(BulletinStage, HoldsAnInvalidPointOfAnEmptyPlace) {
  stage.Departing(L"");
  stage.AltDestination(L"  ");
  EXPECT_EQ(stage.Departing(), L"");
  EXPECT_EQ(written(stage),
            part("<ndd:adep/><ndd:etd>2026-11-16T22:00:00Z</ndd:etd>"
                 "<ndd:ades><ndd:loc>YMML</ndd:loc></ndd:ades>"
                 "<ndd:weight-category>L</ndd:weight-category><ndd:level>F180</ndd:level>"
                 "<ndd:alternate><ndd:ades/><ndd:level/></ndd:alternate>"));
}

TEST_F(BulletinStage, CleansItsWeightCategoryAndLeavesOutAnEmptyOne) {
  stage.WeightCat(L" m ");
  EXPECT_EQ(stage.WeightCat(), L"M");
  stage.WeightCat(L"   ");
  EXPECT_EQ(stage.WeightCat(), L"");
  EXPECT_EQ(written(stage), part(upToDestination + "<ndd:level>F180</ndd:level>"));
}

TEST_F(BulletinStage, SendsLevelsExactlyAsGiven) {
  stage.Level(L" f350 ");
  stage.AltLevel(L" a090 ");
  stage.AltDestination(L"ymav");
  EXPECT_EQ(stage.Level(), L" f350 ");
  EXPECT_EQ(stage.AltLevel(), L" a090 ");
  EXPECT_EQ(written(stage),
            part(upToDestination +
                 "<ndd:weight-category>L</ndd:weight-category><ndd:level> f350 </ndd:level>"
                 "<ndd:alternate><ndd:ades><ndd:loc>YMAV</ndd:loc></ndd:ades>"
                 "<ndd:level> a090 </ndd:level></ndd:alternate>"));
  stage.Level(L"");
  stage.AltLevel(L"");
  EXPECT_EQ(written(stage),
            part(upToDestination +
                 "<ndd:weight-category>L</ndd:weight-category><ndd:level/>"
                 "<ndd:alternate><ndd:ades><ndd:loc>YMAV</ndd:loc></ndd:ades><ndd:level/>"
                 "</ndd:alternate>"));
}

TEST_F(BulletinStage, TakesUpToNineAdditionalLocations) {
  stage.addAdditionalLocation(L"");
  stage.addAdditionalLocation(L"   ");
  std::string expected = upToLevel;
  for (int number = 1; number <= 10; ++number) {
    stage.addAdditionalLocation(L" ys  " + std::to_wstring(number) + L" ");
    if (number <= 9) {
      expected += "<ndd:additional-loc>YS  " + std::to_string(number) + "</ndd:additional-loc>";
    }
  }
  EXPECT_EQ(written(stage), part(expected));
}

TEST_F(BulletinStage, TakesUpToFiveAdditionalAreas) {
  stage.addAdditionalArea(L"");
  stage.addAdditionalArea(L"   ");
  std::string expected = upToLevel;
  for (int number = 1; number <= 6; ++number) {
    stage.addAdditionalArea(L" a" + std::to_wstring(number) + L" ");
    if (number <= 5) expected += "<ndd:area>A" + std::to_string(number) + "</ndd:area>";
  }
  EXPECT_EQ(written(stage), part(expected));
}

TEST_F(BulletinStage, WritesNoAlternateRouteWithoutAnAlternate) {
  stage.AltRoute(std::make_shared<SPFIBRoute>());
  stage.AltRoute()->addNamed(L"wol");
  stage.AltLevel(L"F120");
  EXPECT_EQ(written(stage), part(upToLevel));
}

TEST_F(BulletinStage, SharesItsRouteWithTheHost) {
  const auto route = std::make_shared<SPFIBRoute>();
  stage.Route(route);
  route->RouteCode(L"h1");
  EXPECT_EQ(written(stage),
            part(upToLevel + "<ndd:route><ndd:route-id>H1</ndd:route-id></ndd:route>"));
}

TEST_F(BulletinStage, EndsInAnEmptyElementWithoutADeparture) {
  SPFIBStageSpec without;
  without.Destination(L"ymml");
  without.Route(std::make_shared<SPFIBRoute>());
  const test::FailureRecorder recorder;
  EXPECT_EQ(written(without), part("<ndd:adep/>"));
  EXPECT_EQ(recorder.reports(), missingPart);
}

TEST_F(BulletinStage, EndsInAnEmptyElementWithoutADestination) {
  SPFIBStageSpec without;
  without.ETD(at(2026, 11, 16, 22));
  without.Departing(L"yssy");
  without.Route(std::make_shared<SPFIBRoute>());
  const test::FailureRecorder recorder;
  EXPECT_EQ(written(without),
            part(departing + "<ndd:etd>2026-11-16T22:00:00Z</ndd:etd><ndd:ades/>"));
  EXPECT_EQ(recorder.reports(), missingPart);
}

TEST_F(BulletinStage, EndsAfterItsLevelWithoutARoute) {
  stage.Route(nullptr);
  stage.addAdditionalLocation(L"yscb");
  stage.AltDestination(L"ymav");
  const test::FailureRecorder recorder;
  EXPECT_EQ(written(stage), part(upToLevel));
  EXPECT_EQ(recorder.reports(), missingPart);
}

TEST_F(BulletinStage, NeedsNoRouteToItsAlternate) {
  const std::string withAlternate = part(
      upToLevel +
      "<ndd:alternate><ndd:ades><ndd:loc>YMAV</ndd:loc></ndd:ades><ndd:level/></ndd:alternate>");
  const test::FailureRecorder recorder;
  stage.AltDestination(L"ymav");
  EXPECT_EQ(written(stage), withAlternate);
  stage.AltRoute(std::make_shared<SPFIBRoute>());
  EXPECT_EQ(written(stage), withAlternate);
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST_F(BulletinStage, ReportsAFaultOfTheRouteToItsAlternateUnderItsOwnName) {
  stage.AltDestination(L"ymav");
  stage.AltRoute(std::make_shared<SPFIBRoute>());
  stage.AltRoute()->Add(nullptr);
  const test::FailureRecorder recorder;
  EXPECT_EQ(
      written(stage),
      part(upToLevel + "<ndd:alternate><ndd:ades><ndd:loc>YMAV</ndd:loc></ndd:ades><ndd:level/>"
                       "<ndd:route><ndd:waypoints/></ndd:route></ndd:alternate>"));
  EXPECT_EQ(recorder.reports(), missingPart);
}

TEST_F(BulletinStage, ReportsAFaultOfItsRoutesUnderItsOwnName) {
  stage.Route()->addNamed(L"wol");
  stage.Route()->Add(nullptr);
  stage.addAdditionalLocation(L"yscb");
  const test::FailureRecorder recorder;
  EXPECT_EQ(written(stage),
            part(upToLevel + "<ndd:route><ndd:waypoints><ndd:loc>WOL</ndd:loc></ndd:waypoints>"
                             "<ndd:waypoints/></ndd:route>"));
  EXPECT_EQ(recorder.reports(), missingPart);
  EXPECT_EQ(test::outcomesOfAppending(stage),
            (test::Outcomes{test::missingObject(L"SPFIBStage"),
                            test::outOfMemory(L"IAppendable_appendTo", L"SPFIBStage")}));
}

}  // namespace
}  // namespace ktpnaips
