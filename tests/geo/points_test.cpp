#include <ktpnaips/geo/points.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/fault.h"
#include "tests/support/parts.h"

namespace ktpnaips {
namespace {

using test::nothingWritten;
using test::part;

/// What the point writes; it reports nothing.
std::string writtenPoint(const IAppendable& point) {
  const test::FailureRecorder recorder;
  std::string text = test::written(point);
  EXPECT_EQ(recorder.reports(), test::Reports{});
  return text;
}

std::string coord(const std::string& lat, const std::string& lon) {
  return part("<ndd:coord><ndd:lat>" + lat + "</ndd:lat><ndd:long>" + lon +
              "</ndd:long></ndd:coord>");
}

std::string bearDist(const std::string& name, const std::string& bearing,
                     const std::string& distance) {
  return part("<ndd:bear-dist><ndd:loc>" + name + "</ndd:loc><ndd:bear>" + bearing +
              "</ndd:bear><ndd:dist>" + distance + "</ndd:dist></ndd:bear-dist>");
}

/// The latitude as it is written.
std::string latitude(double value) {
  const std::string text = writtenPoint(CoordinatePoint(value, 0));
  const std::string start = "<ndd:part><ndd:coord><ndd:lat>";
  return text.substr(start.size(), text.find("</ndd:lat>") - start.size());
}

/// The latitude's half of the compact text.
std::wstring compactLatitude(double value) {
  const std::wstring text = CoordinatePoint(value, 0).toString();
  return text.substr(0, text.size() - std::wstring(L"0000E").size());
}

/// The reports in which failures to append the point end.
test::Outcomes handlersOf(const Point& point) {
  test::Outcomes outcomes = test::outcomesOfAppending(point);
  outcomes.erase(std::wstring(test::escaped));
  return outcomes;
}

TEST(NamedPlace, IsInvalidUntilItHasAName) {
  NamedPoint point;
  EXPECT_EQ(point.Name(), L"");
  EXPECT_EQ(point.toString(), L"");
  EXPECT_EQ(writtenPoint(point), nothingWritten);
  point.Name(L"   ");
  EXPECT_EQ(writtenPoint(point), nothingWritten);
}

TEST(NamedPlace, TrimsAndUpperCasesItsName) {
  NamedPoint point;
  point.Name(L"  ysSy ");
  EXPECT_EQ(point.Name(), L"YSSY");
  EXPECT_EQ(point.toString(), L"YSSY");
  EXPECT_EQ(writtenPoint(point), part("<ndd:loc>YSSY</ndd:loc>"));
  point.Name(L" a  b ");
  EXPECT_EQ(point.Name(), L"A  B");
  EXPECT_EQ(NamedPoint(L" wol ").Name(), L"WOL");
}

TEST(NamedPlace, IsAppendedAlikeThroughItsInterfaces) {
  const std::shared_ptr<Point> point = std::make_shared<NamedPoint>(L"yssy");
  const IAppendable& appendable = *point;
  EXPECT_EQ(writtenPoint(appendable), part("<ndd:loc>YSSY</ndd:loc>"));
  EXPECT_EQ(point->toString(), L"YSSY");
}

TEST(NamedPlace, HasNoHandler) {
  const NamedPoint point(L"a name too long to be stored in place");
  EXPECT_EQ(handlersOf(point), test::Outcomes{});
}

TEST(Coordinates, AreInvalidAtFirst) {
  CoordinatePoint point;
  EXPECT_EQ(point.Lat(), 91.0);
  EXPECT_EQ(point.Lon(), 181.0);
  EXPECT_EQ(point.toString(), L"9100N18100E");
  EXPECT_EQ(writtenPoint(point), nothingWritten);
}

TEST(Coordinates, NeedBothTheirValues) {
  CoordinatePoint onlyLat;
  onlyLat.Lat(-33.0);
  EXPECT_EQ(writtenPoint(onlyLat), nothingWritten);
  CoordinatePoint onlyLon;
  onlyLon.Lon(151.0);
  EXPECT_EQ(writtenPoint(onlyLon), nothingWritten);
}

TEST(Coordinates, AreWrittenWithSixDecimals) {
  EXPECT_EQ(writtenPoint(CoordinatePoint(-33.8667, 151.2)), coord("-33.866700", "151.200000"));
  EXPECT_EQ(writtenPoint(CoordinatePoint(1, -2)), coord("1.000000", "-2.000000"));
}

TEST(Coordinates, AreWrittenWithoutALeadingZero) {
  EXPECT_EQ(writtenPoint(CoordinatePoint(0.5, -0.25)), coord(".500000", "-.250000"));
  EXPECT_EQ(writtenPoint(CoordinatePoint(0, 0)), coord(".000000", ".000000"));
}

TEST(Coordinates, AreValidUpToTheirBounds) {
  EXPECT_EQ(writtenPoint(CoordinatePoint(90, 180)), coord("90.000000", "180.000000"));
  EXPECT_EQ(writtenPoint(CoordinatePoint(-90, -180)), coord("-90.000000", "-180.000000"));
}

TEST(Coordinates, AreInvalidBeyondTheirBounds) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double notANumber = std::numeric_limits<double>::quiet_NaN();
  for (const double lat : {std::nextafter(90.0, 91.0), std::nextafter(-90.0, -91.0), 1e300,
                           infinity, -infinity, notANumber}) {
    EXPECT_EQ(writtenPoint(CoordinatePoint(lat, 0)), nothingWritten) << lat;
  }
  for (const double lon : {std::nextafter(180.0, 181.0), std::nextafter(-180.0, -181.0), 1e300,
                           infinity, -infinity, notANumber}) {
    EXPECT_EQ(writtenPoint(CoordinatePoint(0, lon)), nothingWritten) << lon;
  }
}

TEST(Coordinates, AreRoundedHalfAwayFromZero) {
  EXPECT_EQ(latitude(1.0 / 128), ".007813");
  EXPECT_EQ(latitude(-1.0 / 128), "-.007813");
  EXPECT_EQ(latitude(5.0 / 128), ".039063");
  EXPECT_EQ(latitude(33 + 1.0 / 128), "33.007813");
  EXPECT_EQ(latitude(-33 - 1.0 / 128), "-33.007813");
  EXPECT_EQ(writtenPoint(CoordinatePoint(0, 151 + 1.0 / 128)), coord(".000000", "151.007813"));
}

TEST(Coordinates, AreRoundedOnTheirExactBinaryValue) {
  EXPECT_EQ(latitude(0.0000005), ".000000");  // a little less than it looks
  EXPECT_EQ(latitude(std::nextafter(0.0000005, 1.0)), ".000001");
  EXPECT_EQ(latitude(1.0000025), "1.000002");
  EXPECT_EQ(latitude(-33.0000005), "-33.000000");
  EXPECT_EQ(latitude(1.0000005), "1.000001");  // a little more than it looks
  EXPECT_EQ(latitude(std::nextafter(1.0000005, 1.0)), "1.000000");
  EXPECT_EQ(latitude(std::nextafter(1.0 / 128, 0.0)), ".007812");
}

TEST(Coordinates, MayRoundUpToAWholeDegree) {
  EXPECT_EQ(latitude(0.9999999), "1.000000");
  EXPECT_EQ(latitude(9.9999996), "10.000000");
  EXPECT_EQ(latitude(89.9999999), "90.000000");
  EXPECT_EQ(writtenPoint(CoordinatePoint(0, -179.9999999)), coord(".000000", "-180.000000"));
}

TEST(Coordinates, KeepTheSignOfANegativeValueThatRoundsToZero) {
  EXPECT_EQ(latitude(-0.0000001), "-.000000");
  EXPECT_EQ(latitude(-std::numeric_limits<double>::denorm_min()), "-.000000");
  EXPECT_EQ(latitude(0.0000001), ".000000");
  EXPECT_EQ(latitude(-0.0), ".000000");
}

TEST(Coordinates, HaveACompactText) {
  EXPECT_EQ(CoordinatePoint(-33.8667, 151.2).toString(), L"3352S15112E");
  EXPECT_EQ(CoordinatePoint(33.95, -5.5).toString(), L"3357N0530W");
  EXPECT_EQ(CoordinatePoint(-33.95, 151.18).toString(), L"3357S15111E");
  EXPECT_EQ(CoordinatePoint(5.5, 5.5).toString(), L"0530N0530E");
  EXPECT_EQ(CoordinatePoint(90, -180).toString(), L"9000N18000W");
}

TEST(Coordinates, LeaveMinutesThatRoundUpToSixtyInTheirCompactText) {
  EXPECT_EQ(compactLatitude(33.9999), L"3360N");
  EXPECT_EQ(compactLatitude(-33.9999), L"3360S");
  EXPECT_EQ(CoordinatePoint(0, 179.9999).toString(), L"0000N17960E");
}

TEST(Coordinates, CountZeroAsNotNegativeInTheirCompactText) {
  EXPECT_EQ(CoordinatePoint(-0.0001, -0.0001).toString(), L"0000S0000W");
  EXPECT_EQ(CoordinatePoint(0, 0).toString(), L"0000N0000E");
  EXPECT_EQ(CoordinatePoint(-0.0, -0.0).toString(), L"0000N0000E");
}

TEST(Coordinates, RoundHalfMinutesToTheEvenNeighbourInTheirCompactText) {
  EXPECT_EQ(compactLatitude(10.125), L"1008N");  // 7.5 minutes
  EXPECT_EQ(compactLatitude(10.375), L"1022N");  // 22.5
  EXPECT_EQ(compactLatitude(-10.625), L"1038S");
  EXPECT_EQ(compactLatitude(10.875), L"1052N");
}

TEST(Coordinates, HaveACompactTextOfInvalidValuesToo) {
  EXPECT_EQ(compactLatitude(123.5), L"12330N");
  EXPECT_EQ(compactLatitude(32767), L"3276700N");
  EXPECT_EQ(compactLatitude(-32767.75), L"3276745S");
}

TEST(Coordinates, OverflowFrom32768Degrees) {
  using Limits = std::numeric_limits<double>;
  for (const double value : {32768.0, -32768.0, 1e300, -1e300, Limits::infinity(),
                             -Limits::infinity(), Limits::quiet_NaN()}) {
    EXPECT_EQ(test::faultOf([&] { (void)CoordinatePoint(value, 0).toString(); }), fault::overflow);
    EXPECT_EQ(test::faultOf([&] { (void)CoordinatePoint(0, value).toString(); }), fault::overflow);
  }
}

TEST(Coordinates, ReportAFailureToAppendThem) {
  EXPECT_EQ(test::outcomesOfAppending(CoordinatePoint(-33.8667, 151.2)),
            test::Outcomes{test::outOfMemory(L"Point_appendTo", L"CoordinatePoint")});
}

TEST(BearingAndDistance, AreInvalidAtFirst) {
  const BearingDistPoint point;
  EXPECT_EQ(point.Name(), L"");
  EXPECT_EQ(point.Bearing(), 0);
  EXPECT_EQ(point.Distance(), 0);
  EXPECT_EQ(point.toString(), L"000000");
  EXPECT_EQ(writtenPoint(point), nothingWritten);
}

TEST(BearingAndDistance, AreWrittenWithAPaddedDistanceOnly) {
  BearingDistPoint point;
  point.Name(L" sy ");
  point.Bearing(45);
  point.Distance(25);
  EXPECT_EQ(point.Name(), L"SY");
  EXPECT_EQ(writtenPoint(point), bearDist("SY", "45", "025"));
  EXPECT_EQ(point.toString(), L"SY045025");
  EXPECT_EQ(writtenPoint(BearingDistPoint(L"sy", 5, 5)), bearDist("SY", "5", "005"));
}

TEST(BearingAndDistance, AreValidWithinTheirBounds) {
  EXPECT_EQ(writtenPoint(BearingDistPoint(L"sy", 0, 1)), bearDist("SY", "0", "001"));
  EXPECT_EQ(writtenPoint(BearingDistPoint(L"sy", 359, 999)), bearDist("SY", "359", "999"));
  for (const std::int16_t bearing : {std::int16_t{360}, std::int16_t{-1}}) {
    EXPECT_EQ(writtenPoint(BearingDistPoint(L"sy", bearing, 25)), nothingWritten);
  }
  for (const std::int16_t distance : {std::int16_t{0}, std::int16_t{1000}, std::int16_t{-1}}) {
    EXPECT_EQ(writtenPoint(BearingDistPoint(L"sy", 45, distance)), nothingWritten);
  }
  EXPECT_EQ(writtenPoint(BearingDistPoint(L"  ", 45, 25)), nothingWritten);
}

TEST(BearingAndDistance, KeepAnyValueAndShowItInTheirText) {
  const BearingDistPoint point(L"sy", -1, 1000);
  EXPECT_EQ(point.Bearing(), -1);
  EXPECT_EQ(point.Distance(), 1000);
  EXPECT_EQ(point.toString(), L"SY-0011000");
  EXPECT_EQ(BearingDistPoint(L"", 5, 7).toString(), L"005007");
}

TEST(BearingAndDistance, MayHaveTheLimitsOfTheirType) {
  using Limits = std::numeric_limits<std::int16_t>;
  BearingDistPoint point(L"sy", Limits::min(), Limits::max());
  EXPECT_EQ(point.toString(), L"SY-3276832767");
  EXPECT_EQ(writtenPoint(point), nothingWritten);
  point.Bearing(45);
  EXPECT_EQ(writtenPoint(point), nothingWritten);
  point.Bearing(Limits::max());
  point.Distance(Limits::min());
  EXPECT_EQ(point.toString(), L"SY32767-32768");
  EXPECT_EQ(writtenPoint(point), nothingWritten);
  point.Bearing(45);
  EXPECT_EQ(writtenPoint(point), nothingWritten);
}

TEST(BearingAndDistance, HaveNoHandler) {
  EXPECT_EQ(handlersOf(BearingDistPoint(L"a long name", 359, 999)), test::Outcomes{});
}

}  // namespace
}  // namespace ktpnaips
