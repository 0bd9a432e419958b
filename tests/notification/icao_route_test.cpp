#include <ktpnaips/geo/points.h>
#include <ktpnaips/notification/icao_route.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "tests/support/failure_recorder.h"
#include "tests/support/fault.h"
#include "tests/support/parts.h"

namespace ktpnaips {
namespace {

using test::part;
using test::written;

const char* const defaults = "<ndd:speed>N0100</ndd:speed><ndd:level>A080</ndd:level>";

TEST(IcaoRoute, WritesItsDefaultSpeedAndLevel) {
  const ICAORoute route;
  EXPECT_EQ(route.Speed(), L"N0100");
  EXPECT_EQ(route.Level(), L"A080");
  EXPECT_EQ(written(route), part(defaults));
}

TEST(IcaoRoute, TrimsAndUpperCasesSpeedAndLevelWithoutCheckingThem) {
  ICAORoute route;
  route.Speed(L"  n04  50 ");
  route.Level(L" any  level ");
  EXPECT_EQ(route.Speed(), L"N04  50");
  EXPECT_EQ(route.Level(), L"ANY  LEVEL");
  route.Speed(L"  ");
  EXPECT_EQ(written(route), part("<ndd:speed/><ndd:level>ANY  LEVEL</ndd:level>"));
}

TEST(IcaoRoute, WritesItsSegmentsInTheOrderAdded) {
  ICAORoute route;
  for (const wchar_t* id : {L"h65", L"w113"}) {
    const auto segment = std::make_shared<ICAORouteSegment>();
    segment->ATSRouteId(id);
    route.Add(segment);
  }
  route.Add(nullptr);
  route.Add(std::make_shared<ICAORouteSegment>());
  EXPECT_EQ(written(route),
            part(std::string(defaults) +
                 "<ndd:segment><ndd:ats-route>H65</ndd:ats-route></ndd:segment>"
                 "<ndd:segment><ndd:ats-route>W113</ndd:ats-route></ndd:segment><ndd:segment/>"));
}

TEST(IcaoRoute, DropsSegmentsBeyondFifty) {
  const test::FailureRecorder recorder;
  ICAORoute route;
  std::string expected = defaults;
  for (int number = 1; number <= 60; ++number) {
    const auto segment = std::make_shared<ICAORouteSegment>();
    segment->ATSRouteId(std::to_wstring(number));
    route.Add(segment);
    if (number <= 50) {
      expected += "<ndd:segment><ndd:ats-route>" + std::to_string(number) +
                  "</ndd:ats-route></ndd:segment>";
    }
  }
  EXPECT_EQ(written(route), part(expected));
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

class FailingRoutePoint : public Point {
 public:
  void appendTo(const xml::Node&, std::wstring_view) const override {
    throw RuntimeFault(fault::typeMismatch);
  }
  [[nodiscard]] std::wstring toString() const override { return {}; }
};

TEST(IcaoRoute, ReportsAFailureOfASegmentAndKeepsWhatItWrote) {
  ICAORoute route;
  const auto segment = std::make_shared<ICAORouteSegment>();
  segment->ATSRouteId(L"h65");
  segment->Waypoint(std::make_shared<FailingRoutePoint>());
  segment->NewSpeed(L"n0450");
  route.Add(segment);
  route.Add(std::make_shared<ICAORouteSegment>());
  const test::FailureRecorder recorder;
  EXPECT_EQ(written(route),
            part(std::string(defaults) + "<ndd:segment><ndd:ats-route>H65</ndd:ats-route>"
                                         "<ndd:waypoint/></ndd:segment>"));
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 13 (Type mismatch) in procedure IAppendable_appendTo of Class "
                          L"Module ICAORoute"});
}

TEST(IcaoRouteSegment, IsEmptyAtFirst) {
  const ICAORouteSegment segment;
  EXPECT_EQ(segment.NewSpeed(), L"");
  EXPECT_EQ(segment.NewLevel(), L"");
  EXPECT_EQ(segment.ATSRouteId(), L"");
  EXPECT_EQ(segment.NewRules(), L"");
  EXPECT_EQ(segment.Waypoint(), nullptr);
  EXPECT_EQ(segment.CCLevel(), L"");
  EXPECT_EQ(written(segment), test::nothingWritten);
}

TEST(IcaoRouteSegment, WritesTheCruiseClimbLevelBeforeTheNewRules) {
  ICAORouteSegment segment;
  segment.NewRules(L" vfr ");
  segment.CCLevel(L" f330 ");
  segment.NewLevel(L" f370 ");
  segment.NewSpeed(L" n0430 ");
  segment.setNamed(L" lizzi ");
  segment.ATSRouteId(L" h65 ");
  EXPECT_EQ(written(segment),
            part("<ndd:ats-route>H65</ndd:ats-route>"
                 "<ndd:waypoint><ndd:loc>LIZZI</ndd:loc></ndd:waypoint>"
                 "<ndd:new-speed>N0430</ndd:new-speed><ndd:new-level>F370</ndd:new-level>"
                 "<ndd:cc-level>F330</ndd:cc-level><ndd:new-rules>VFR</ndd:new-rules>"));
}

TEST(IcaoRouteSegment, LeavesOutWhatIsBlank) {
  ICAORouteSegment segment;
  segment.ATSRouteId(L"h65");
  segment.ATSRouteId(L"  ");
  EXPECT_EQ(segment.ATSRouteId(), L"");
  segment.NewSpeed(L" ");
  segment.NewLevel(L" ");
  segment.CCLevel(L" ");
  segment.NewRules(L" ");
  EXPECT_EQ(written(segment), test::nothingWritten);
}

TEST(IcaoRouteSegment, WritesEachTextWithoutTheOthersAndKeepsInnerSpaces) {
  const auto writtenWith = [](auto text) {
    ICAORouteSegment segment;
    (segment.*text)(L" a  b ");
    EXPECT_EQ((segment.*text)(), L"A  B");
    return written(segment);
  };
  EXPECT_EQ(writtenWith(&ICAORouteSegment::NewSpeed), part("<ndd:new-speed>A  B</ndd:new-speed>"));
  EXPECT_EQ(writtenWith(&ICAORouteSegment::NewLevel), part("<ndd:new-level>A  B</ndd:new-level>"));
  EXPECT_EQ(writtenWith(&ICAORouteSegment::ATSRouteId),
            part("<ndd:ats-route>A  B</ndd:ats-route>"));
  EXPECT_EQ(writtenWith(&ICAORouteSegment::NewRules), part("<ndd:new-rules>A  B</ndd:new-rules>"));
  EXPECT_EQ(writtenWith(&ICAORouteSegment::CCLevel), part("<ndd:cc-level>A  B</ndd:cc-level>"));
}

TEST(IcaoRouteSegment, SharesItsWaypointAndReplacesItWhole) {
  ICAORouteSegment segment;
  const auto point = std::make_shared<NamedPoint>(L"yssy");
  segment.Waypoint(point);
  EXPECT_EQ(segment.Waypoint(), point);
  point->Name(L"ymml");
  EXPECT_EQ(written(segment), part("<ndd:waypoint><ndd:loc>YMML</ndd:loc></ndd:waypoint>"));
  segment.setNamed(L"yscb");
  EXPECT_EQ(point->Name(), L"YMML");
  segment.setLatLon(-35, 149);
  const auto position = segment.Waypoint();
  segment.setLatLon(1, 2);
  EXPECT_EQ(position->toString(), L"3500S14900E");
  segment.setBearingDistance(L"sy", 45, 25);
  const auto offset = segment.Waypoint();
  segment.setBearingDistance(L"cb", 1, 2);
  EXPECT_EQ(offset->toString(), L"SY045025");
  segment.Waypoint(nullptr);
  EXPECT_EQ(written(segment), test::nothingWritten);
}

TEST(IcaoRouteSegment, IsReleasedWithItsRouteAndReleasesItsWaypoint) {
  const auto point = std::make_shared<NamedPoint>(L"yssy");
  auto segment = std::make_shared<ICAORouteSegment>();
  segment->Waypoint(point);
  const std::weak_ptr<ICAORouteSegment> kept = segment;
  {
    ICAORoute route;
    route.Add(std::move(segment));
    EXPECT_FALSE(kept.expired());
  }
  EXPECT_TRUE(kept.expired());
  EXPECT_EQ(point.use_count(), 1);
}

TEST(IcaoRouteSegment, HasTheWaypointOfTheLastCall) {
  ICAORouteSegment segment;
  segment.setNamed(L"wol180010");
  EXPECT_EQ(written(segment),
            part("<ndd:waypoint><ndd:bear-dist><ndd:loc>WOL</ndd:loc><ndd:bear>180</ndd:bear>"
                 "<ndd:dist>010</ndd:dist></ndd:bear-dist></ndd:waypoint>"));
  segment.setLatLon(-33.8667, 151.2);
  EXPECT_EQ(written(segment), part("<ndd:waypoint><ndd:coord><ndd:lat>-33.866700</ndd:lat>"
                                   "<ndd:long>151.200000</ndd:long></ndd:coord></ndd:waypoint>"));
  segment.setBearingDistance(L" sy ", 45, 25);
  EXPECT_EQ(written(segment),
            part("<ndd:waypoint><ndd:bear-dist><ndd:loc>SY</ndd:loc><ndd:bear>45</ndd:bear>"
                 "<ndd:dist>025</ndd:dist></ndd:bear-dist></ndd:waypoint>"));
  segment.setNamed(L"yssy");
  EXPECT_EQ(segment.Waypoint()->toString(), L"YSSY");
}

TEST(IcaoRouteSegment, LeavesTheElementOfAnInvalidWaypointEmpty) {
  ICAORouteSegment segment;
  segment.setLatLon(91, 0);
  EXPECT_EQ(written(segment), part("<ndd:waypoint/>"));
  segment.setBearingDistance(L"sy", 360, 25);
  EXPECT_EQ(written(segment), part("<ndd:waypoint/>"));
}

TEST(IcaoRouteSegment, PassesAFailureOn) {
  ICAORouteSegment segment;
  segment.Waypoint(std::make_shared<FailingRoutePoint>());
  const test::FailureRecorder recorder;
  EXPECT_EQ(test::faultOf([&] { (void)written(segment); }), fault::typeMismatch);
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

}  // namespace
}  // namespace ktpnaips
