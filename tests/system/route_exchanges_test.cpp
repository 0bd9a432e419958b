#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/spfib/route_directory.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

using namespace ktpnaips;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

class RouteExchange : public simulator::Exchange {
 protected:
  RouteDirectoryRqs directoryRequest;
  GetRouteRqs request;
};

INSTANTIATE_TEST_SUITE_P(Schemes, RouteExchange, testing::Bool(), simulator::schemeName);

TEST_P(RouteExchange, ListsTheRoutesBetweenTwoAerodromes) {
  directoryRequest.Depart(L" yssy ");
  directoryRequest.Destination(L"ymml");
  const auto directory = directoryRequest.submit();
  ASSERT_TRUE(succeeded(directory));
  EXPECT_EQ(lastRequest(), requestOf("route-dir-rqs", "<adep>YSSY</adep><ades>YMML</ades>",
                                     " scope=\"domestic\""));
  ASSERT_EQ(directory->Count(), 2);
  const auto jet = directory->Item(1);
  EXPECT_EQ(jet->Depart(), L"YSSY");
  EXPECT_EQ(jet->Destination(), L"YMML");
  EXPECT_EQ(jet->RouteCode(), L"A1");
  EXPECT_EQ(jet->Description(), L"SYDNEY - MELBOURNE VIA WOL (JET)");
  const auto nonJet = directory->Item(2);
  EXPECT_EQ(nonJet->Depart(), L"YSSY");
  EXPECT_EQ(nonJet->Destination(), L"YMML");
  EXPECT_EQ(nonJet->RouteCode(), L"B1");
  EXPECT_EQ(nonJet->Description(), L"SYDNEY - MELBOURNE VIA TESAT (NON JET)");
  EXPECT_EQ(directory->Item(0), nullptr);
  EXPECT_EQ(directory->Item(3), nullptr);
}

std::vector<std::wstring> destinations(const RouteDirectoryRsp& directory) {
  std::vector<std::wstring> names;
  for (const auto& route : directory) names.push_back(route->Destination());
  return names;
}

TEST_P(RouteExchange, ListsInternationalRoutesTooWhenTheyAreAskedFor) {
  const std::vector<std::wstring> domestic{L"YMML", L"YMML", L"YBBN", L"YSCB"};
  directoryRequest.Depart(L"YSSY");
  const auto within = directoryRequest.submit();
  ASSERT_TRUE(succeeded(within));
  EXPECT_EQ(destinations(*within), domestic);

  directoryRequest.DomesticOnly(false);
  const auto all = directoryRequest.submit();
  ASSERT_TRUE(succeeded(all));
  EXPECT_EQ(lastRequest(),
            requestOf("route-dir-rqs", "<adep>YSSY</adep><ades/>", " scope=\"international\""));
  std::vector<std::wstring> both = domestic;
  both.insert(both.end(), {L"NZAA", L"WSSS"});
  EXPECT_EQ(destinations(*all), both);
}

TEST_P(RouteExchange, ListsNoneBetweenAerodromesWithoutARoute) {
  directoryRequest.Depart(L"YSSY");
  directoryRequest.Destination(L"YPPH");
  const auto directory = directoryRequest.submit();
  ASSERT_TRUE(succeeded(directory));
  EXPECT_EQ(directory->Count(), 0);
  EXPECT_EQ(directory->Item(1), nullptr);
}

std::wstring textOf(const AbstractResponse& response, std::string_view path) {
  return response.Payload().select(path).text();
}

TEST_P(RouteExchange, FetchesOneRouteIntoThePayload) {
  request.Depart(L" yssy ");
  request.Destination(L"ymml");
  request.Code(L"b1");
  const auto route = request.submit();
  ASSERT_TRUE(succeeded(route));
  EXPECT_EQ(lastRequest(),
            requestOf("get-route-rqs",
                      "<route><adep>YSSY</adep><ades>YMML</ades><code>B1</code></route>"));
  EXPECT_EQ(textOf(*route, "naips:route/naips:adep"), L"YSSY");
  EXPECT_EQ(textOf(*route, "naips:route/naips:ades"), L"YMML");
  EXPECT_EQ(textOf(*route, "naips:route/naips:code"), L"B1");
  EXPECT_EQ(textOf(*route, "naips:route/naips:description"),
            L"SYDNEY - MELBOURNE VIA TESAT (NON JET)");
  EXPECT_EQ(textOf(*route, "naips:route/naips:route-text"), L"DCT TESAT H20 SNOWY V169 LIZZI DCT");
}

TEST_P(RouteExchange, FetchesEveryRouteThatIsListed) {
  directoryRequest.DomesticOnly(false);
  const auto directory = directoryRequest.submit();
  ASSERT_TRUE(succeeded(directory));
  EXPECT_EQ(directory->Count(), 27);
  for (const auto& listed : *directory) {
    request.Depart(listed->Depart());
    request.Destination(listed->Destination());
    request.Code(listed->RouteCode());
    const auto route = request.submit();
    ASSERT_TRUE(succeeded(route));
    EXPECT_EQ(textOf(*route, "naips:route/naips:description"), listed->Description());
    EXPECT_EQ(textOf(*route, "naips:route/naips:route-text").substr(0, 3), L"DCT");
  }
}

TEST_P(RouteExchange, IsRefusedARouteThatIsNotListed) {
  request.Depart(L"YSSY");
  request.Destination(L"YMML");
  request.Code(L"Z9");
  const auto route = request.submit();
  EXPECT_TRUE(refused(route, L"Unknown route: YSSY YMML Z9"));
  EXPECT_FALSE(route->Payload().select("naips:route"));
}

TEST_P(RouteExchange, ListsNoRoutesWhenItIsRefused) {
  directoryRequest.abstractReq().User(L"nobody");
  const auto directory = directoryRequest.submit();
  EXPECT_TRUE(refused(directory, L"Invalid user name or password"));
  EXPECT_EQ(directory->Count(), 0);
}

}  // namespace
