#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/spfib/spfib_route.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "tests/support/failing_allocation.h"
#include "tests/support/fault.h"
#include "tests/support/parts.h"

namespace ktpnaips {
namespace {

using test::faultOf;
using test::part;
using test::written;

std::shared_ptr<Point> named(const wchar_t* name) {
  return std::make_shared<NamedPoint>(name);
}

TEST(BulletinRoute, WritesNothingAtFirst) {
  const SPFIBRoute route;
  EXPECT_EQ(route.RouteCode(), L"");
  EXPECT_EQ(route.Count(), 0);
  EXPECT_EQ(written(route), test::nothingWritten);
}

TEST(BulletinRoute, WritesItsCodeInPlaceOfItsPoints) {
  SPFIBRoute route;
  route.addNamed(L"wol");
  route.addNamed(L"corda");
  route.addNamed(L"lizzi");
  route.RouteCode(L" h1 ");
  EXPECT_EQ(route.RouteCode(), L"H1");
  EXPECT_EQ(route.Count(), 3);
  EXPECT_EQ(written(route), part("<ndd:route><ndd:route-id>H1</ndd:route-id></ndd:route>"));
  route.RouteCode(L"  ");
  EXPECT_EQ(written(route),
            part("<ndd:route><ndd:waypoints><ndd:loc>WOL</ndd:loc></ndd:waypoints>"
                 "<ndd:waypoints><ndd:loc>CORDA</ndd:loc></ndd:waypoints>"
                 "<ndd:waypoints><ndd:loc>LIZZI</ndd:loc></ndd:waypoints></ndd:route>"));
}

TEST(BulletinRoute, WritesItsCodeWithoutPoints) {
  SPFIBRoute route;
  route.RouteCode(L"h  1");
  EXPECT_EQ(written(route), part("<ndd:route><ndd:route-id>H  1</ndd:route-id></ndd:route>"));
}

TEST(BulletinRoute, WritesEachPointIntoAnElementOfItsOwn) {
  SPFIBRoute route;
  route.addNamed(L" wol ");
  route.addLatLon(-33.8667, 151.2);
  route.addBearingDistance(L" sy ", 45, 25);
  EXPECT_EQ(written(route),
            part("<ndd:route><ndd:waypoints><ndd:loc>WOL</ndd:loc></ndd:waypoints>"
                 "<ndd:waypoints><ndd:coord><ndd:lat>-33.866700</ndd:lat>"
                 "<ndd:long>151.200000</ndd:long></ndd:coord></ndd:waypoints>"
                 "<ndd:waypoints><ndd:bear-dist><ndd:loc>SY</ndd:loc><ndd:bear>45</ndd:bear>"
                 "<ndd:dist>025</ndd:dist></ndd:bear-dist></ndd:waypoints></ndd:route>"));
}

TEST(BulletinRoute, LeavesTheElementOfAnInvalidPointEmpty) {
  SPFIBRoute route;
  route.addLatLon(91, 0);
  route.addBearingDistance(L"sy", 360, 25);
  route.addNamed(L"");
  EXPECT_EQ(route.Count(), 3);
  EXPECT_EQ(written(route),
            part("<ndd:route><ndd:waypoints/><ndd:waypoints/><ndd:waypoints/></ndd:route>"));
}

TEST(BulletinRoute, LeavesTheElementsOfPointsEmptyWhoseValuesWereNeverSet) {
  SPFIBRoute route;
  route.Add(std::make_shared<NamedPoint>());
  route.Add(std::make_shared<CoordinatePoint>());
  route.Add(std::make_shared<BearingDistPoint>());
  EXPECT_EQ(written(route),
            part("<ndd:route><ndd:waypoints/><ndd:waypoints/><ndd:waypoints/></ndd:route>"));
}

TEST(BulletinRoute, TakesNumbersOfAnyMagnitude) {
  using Double = std::numeric_limits<double>;
  using Small = std::numeric_limits<std::int16_t>;
  SPFIBRoute route;
  route.addLatLon(1e300, 0);
  route.addLatLon(0, -Double::infinity());
  route.addLatLon(Double::quiet_NaN(), 0);
  route.addBearingDistance(L"sy", Small::min(), 25);
  route.addBearingDistance(L"sy", 45, Small::max());
  std::string waypoints;
  for (int number = 1; number <= 5; ++number) waypoints += "<ndd:waypoints/>";
  EXPECT_EQ(written(route), part("<ndd:route>" + waypoints + "</ndd:route>"));
}

TEST(BulletinRoute, AddsThePointThatADesignatorGives) {
  SPFIBRoute route;
  route.addNamed(L"SY045025");
  route.addNamed(L"YSSY");
  EXPECT_NE(std::dynamic_pointer_cast<BearingDistPoint>(route.Item(1)), nullptr);
  EXPECT_NE(std::dynamic_pointer_cast<NamedPoint>(route.Item(2)), nullptr);
}

TEST(BulletinRoute, CountsItsPointsFromOneInTheOrderAdded) {
  SPFIBRoute route;
  const auto first = named(L"a");
  const auto second = named(L"b");
  route.Add(first);
  route.Add(second);
  route.Add(first);
  EXPECT_EQ(route.Count(), 3);
  EXPECT_EQ(route.Item(1), first);
  EXPECT_EQ(route.Item(2), second);
  EXPECT_EQ(route.Item(3), first);
  EXPECT_EQ(std::vector<std::shared_ptr<Point>>(route.begin(), route.end()),
            (std::vector<std::shared_ptr<Point>>{first, second, first}));
}

TEST(BulletinRoute, FaultsAtAnyIndexAndKeyWhileItIsEmpty) {
  SPFIBRoute route;
  EXPECT_EQ(faultOf([&] { (void)route.Item(1); }), fault::subscriptOutOfRange);
  EXPECT_EQ(faultOf([&] { route.Remove(1); }), fault::subscriptOutOfRange);
  EXPECT_EQ(faultOf([&] { (void)route.Item(L""); }), fault::invalidCall);
  EXPECT_EQ(faultOf([&] { route.Remove(L""); }), fault::invalidCall);
}

TEST(BulletinRoute, FaultsAtAnIndexOutsideOneToCount) {
  SPFIBRoute route;
  route.addNamed(L"a");
  for (const std::int32_t index : {0, 2, -1, std::numeric_limits<std::int32_t>::max(),
                                   std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(faultOf([&] { (void)route.Item(index); }), fault::subscriptOutOfRange);
    EXPECT_EQ(faultOf([&] { route.Remove(index); }), fault::subscriptOutOfRange);
  }
  EXPECT_EQ(route.Count(), 1);
}

TEST(BulletinRoute, GivesPointsByTheirKeysWhateverTheirCase) {
  SPFIBRoute route;
  const auto first = named(L"a");
  const auto second = named(L"b");
  route.Add(first, L"Start");
  route.Add(named(L"c"));
  route.Add(second, L"end");
  EXPECT_EQ(route.Item(L"Start"), first);
  EXPECT_EQ(route.Item(L"sTART"), first);
  EXPECT_EQ(route.Item(L"END"), second);
  EXPECT_EQ(route.Item(3), second);
  EXPECT_EQ(route.Count(), 3);
}

TEST(BulletinRoute, FaultsAtAnUnknownKey) {
  SPFIBRoute route;
  route.Add(named(L"a"), L"start");
  route.Add(named(L"b"));
  for (const wchar_t* key : {L"end", L"star", L" start", L"1", L"b"}) {
    EXPECT_EQ(faultOf([&] { (void)route.Item(key); }), fault::invalidCall);
    EXPECT_EQ(faultOf([&] { route.Remove(key); }), fault::invalidCall);
  }
  EXPECT_EQ(route.Count(), 2);
}

TEST(BulletinRoute, FaultsAtASecondPointUnderTheSameKey) {
  SPFIBRoute route;
  const auto first = named(L"a");
  route.Add(first, L"start");
  EXPECT_EQ(faultOf([&] { route.Add(named(L"b"), L"start"); }), fault::duplicateKey);
  EXPECT_EQ(faultOf([&] { route.Add(named(L"b"), L"START"); }), fault::duplicateKey);
  EXPECT_EQ(route.Count(), 1);
  EXPECT_EQ(route.Item(L"start"), first);
}

TEST(BulletinRoute, TakesAnEmptyKeyForNone) {
  SPFIBRoute route;
  const auto second = named(L"b");
  route.Add(named(L"a"), L"");
  route.Add(second, L"");
  EXPECT_EQ(route.Count(), 2);
  EXPECT_EQ(route.Item(2), second);
  EXPECT_EQ(faultOf([&] { (void)route.Item(L""); }), fault::invalidCall);
  EXPECT_EQ(faultOf([&] { route.Remove(L""); }), fault::invalidCall);
}

TEST(BulletinRoute, TakesManyKeysAsQuicklyAsFew) {
  constexpr int many = 100'000;
  SPFIBRoute route;
  const auto point = named(L"a");
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < many; ++i) route.Add(point, std::to_wstring(i));
  for (int i = 0; i < many; ++i) (void)route.Item(std::to_wstring(i));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  EXPECT_EQ(route.Count(), many);
}

TEST(BulletinRoute, KeepsItsPointsAndKeysTogetherWhenAnAllocationFails) {
  for (int before = 0;; ++before) {
    SPFIBRoute route;
    route.Add(named(L"a"), L"start");
    const auto point = named(L"b");
    bool hasFailed = false;
    {
      const test::FailingAllocation failing(before);
      try {
        route.Add(point, L"a key that is too long to be kept without an allocation");
      } catch (const std::bad_alloc&) {
      }
      hasFailed = failing.hasFailed();
    }
    if (!hasFailed) break;
    EXPECT_EQ(route.Count(), 1);
    EXPECT_EQ(faultOf([&] {
                route.Add(point, L"A KEY that is too long to be kept without an allocation");
              }),
              0);
    EXPECT_EQ(route.Item(2), point);
    ASSERT_LT(before, 100);
  }
}

TEST(BulletinRoute, FindsItsPointsByTheirKeysBehindARemovedOne) {
  SPFIBRoute route;
  const auto third = named(L"c");
  const auto fourth = named(L"d");
  route.Add(named(L"a"), L"one");
  route.Add(named(L"b"));
  route.Add(third, L"three");
  route.Add(fourth, L"four");
  route.Remove(2);
  EXPECT_EQ(route.Item(L"three"), third);
  route.Remove(L"one");
  EXPECT_EQ(route.Item(L"three"), third);
  EXPECT_EQ(route.Item(L"four"), fourth);
  route.Remove(L"four");
  EXPECT_EQ(route.Count(), 1);
  EXPECT_EQ(route.Item(1), third);
}

TEST(BulletinRoute, RemovesByIndexAndByKey) {
  SPFIBRoute route;
  const auto second = named(L"b");
  const auto third = named(L"c");
  const auto fourth = named(L"d");
  route.Add(named(L"a"));
  route.Add(second, L"two");
  route.Add(third, L"three");
  route.Add(fourth, L"four");
  route.Remove(1);
  EXPECT_EQ(route.Item(1), second);
  EXPECT_EQ(route.Item(L"three"), third);
  route.Remove(L"Three");
  EXPECT_EQ(route.Count(), 2);
  EXPECT_EQ(route.Item(2), fourth);
  EXPECT_EQ(route.Item(L"four"), fourth);
  EXPECT_EQ(faultOf([&] { (void)route.Item(L"three"); }), fault::invalidCall);
  route.Add(third, L"three");
  EXPECT_EQ(route.Item(3), third);
}

TEST(BulletinRoute, ForgetsItsPointsAndKeysButNotItsCodeWhenItIsCleared) {
  SPFIBRoute route;
  route.RouteCode(L"h1");
  route.Add(named(L"a"), L"start");
  route.Clear();
  EXPECT_EQ(route.Count(), 0);
  EXPECT_EQ(route.begin(), route.end());
  EXPECT_EQ(route.RouteCode(), L"H1");
  EXPECT_EQ(faultOf([&] { route.Add(named(L"b"), L"start"); }), 0);
  EXPECT_EQ(route.Count(), 1);
}

TEST(BulletinRoute, FaultsAtAPointThatIsNoObjectWithoutAHandler) {
  SPFIBRoute route;
  route.addNamed(L"a");
  route.Add(nullptr);
  EXPECT_EQ(route.Count(), 2);
  EXPECT_EQ(faultOf([&] { (void)written(route); }), fault::objectNotSet);
}

}  // namespace
}  // namespace ktpnaips
