#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/spfib/location_directory.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace ktpnaips;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

class LocationExchange : public simulator::Exchange {
 protected:
  LocAirspaceDirectoryRqs request;
};

INSTANTIATE_TEST_SUITE_P(Schemes, LocationExchange, testing::Bool(), simulator::schemeName);

std::vector<std::wstring> keys(const LocAirspaceDirectoryRsp& directory) {
  std::vector<std::wstring> names;
  for (const auto& details : directory) names.push_back(details->Key());
  return names;
}

TEST_P(LocationExchange, FindsAnAerodromeWithItsPosition) {
  request.PartialName(L" sydney/k ");
  const auto directory = request.submit();
  ASSERT_TRUE(succeeded(directory));
  EXPECT_EQ(lastRequest(), requestOf("loc-airspace-dir-rqs", "<loc>SYDNEY/K</loc>"));
  ASSERT_EQ(directory->Count(), 1);
  const auto sydney = directory->Item(1);
  EXPECT_EQ(sydney->Key(), L"YSSY");
  EXPECT_EQ(sydney->Name(), L"SYDNEY/KINGSFORD SMITH");
  EXPECT_EQ(sydney->Description(), L"AERODROME NSW");
  ASSERT_NE(sydney->Coord(), nullptr);
  EXPECT_EQ(sydney->Coord()->Lat(), -33.946);
  EXPECT_EQ(sydney->Coord()->Lon(), 151.177);
  EXPECT_EQ(sydney->Coord()->toString(), L"3357S15111E");
  EXPECT_EQ(directory->Item(0), nullptr);
  EXPECT_EQ(directory->Item(2), nullptr);
}

TEST_P(LocationExchange, FindsEveryPlaceOfTheNameThenTheAirspaces) {
  request.PartialName(L"syd");
  const auto directory = request.submit();
  ASSERT_TRUE(succeeded(directory));
  EXPECT_EQ(keys(*directory), (std::vector<std::wstring>{L"SY", L"YSBK", L"YSCN", L"YSSY", L"21"}));
  EXPECT_EQ(directory->Item(1)->Description(), L"NAVIGATION AID NSW");
  const auto area = directory->Item(5);
  EXPECT_EQ(area->Name(), L"SYDNEY AND SOUTH EAST");
  EXPECT_EQ(area->Description(), L"FORECAST AREA");
  EXPECT_EQ(area->Coord(), nullptr) << "an airspace has no position";
}

TEST_P(LocationExchange, FindsAWaypointByItsCode) {
  request.PartialName(L"RIVET");
  const auto directory = request.submit();
  ASSERT_EQ(keys(*directory), std::vector<std::wstring>{L"RIVET"});
  EXPECT_EQ(directory->Item(1)->Name(), L"RIVET");
  EXPECT_EQ(directory->Item(1)->Description(), L"WAYPOINT NSW");
  EXPECT_EQ(directory->Item(1)->Coord()->toString(), L"3419S15028E");
}

TEST_P(LocationExchange, FindsAFlightInformationRegion) {
  request.PartialName(L"brisbane fir");
  const auto directory = request.submit();
  ASSERT_EQ(keys(*directory), std::vector<std::wstring>{L"YBBB"});
  EXPECT_EQ(directory->Item(1)->Name(), L"BRISBANE FIR");
  EXPECT_EQ(directory->Item(1)->Description(), L"FLIGHT INFORMATION REGION");
  EXPECT_EQ(directory->Item(1)->Coord(), nullptr);
}

TEST_P(LocationExchange, FindsNothingForNothingAndForAnUnknownName) {
  const auto nothing = request.submit();
  ASSERT_TRUE(succeeded(nothing));
  EXPECT_EQ(lastRequest(), requestOf("loc-airspace-dir-rqs", "<loc/>"));
  EXPECT_EQ(nothing->Count(), 0);
  request.PartialName(L"QQQQ");
  const auto unknown = request.submit();
  ASSERT_TRUE(succeeded(unknown));
  EXPECT_EQ(unknown->Count(), 0);
}

TEST_P(LocationExchange, ListsNothingWhenItIsRefused) {
  request.abstractReq().User(L"nobody");
  request.PartialName(L"YSSY");
  const auto directory = request.submit();
  EXPECT_TRUE(refused(directory, L"Invalid user name or password"));
  EXPECT_EQ(directory->Count(), 0);
}

}  // namespace
