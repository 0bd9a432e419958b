#include "tests/support/date_time.h"
#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/briefing/notams.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/spfib/route_directory.h>
#include <ktpnaips/spfib/spfib_directory.h>
#include <ktpnaips/spfib/spfib_requests.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace ktpnaips;
using ktpnaips::test::at;
using simulator::holds;
using simulator::isPng;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

std::shared_ptr<SPFIBRoute> stored(const wchar_t* code) {
  auto route = std::make_shared<SPFIBRoute>();
  route->RouteCode(code);
  return route;
}

std::shared_ptr<SPFIBStageSpec> stage(const wchar_t* departing, const wchar_t* destination,
                                      DateTime etd, std::shared_ptr<SPFIBRoute> route) {
  auto made = std::make_shared<SPFIBStageSpec>();
  made->Departing(departing);
  made->Destination(destination);
  made->ETD(etd);
  made->Route(std::move(route));
  return made;
}

/// To Canberra by points of each kind, with an alternate.
std::shared_ptr<SPFIBStageSpec> stageToCanberra() {
  auto route = std::make_shared<SPFIBRoute>();
  route->addNamed(L" wol ");
  route->addLatLon(-34.7, 149.6);
  route->addBearingDistance(L"sy", 45, 25);
  auto made = stage(L" yssy ", L"yscb", at(2026, 11, 20, 22), route);
  made->WeightCat(L" m ");
  made->Level(L"A080");
  made->addAdditionalLocation(L" ysbk ");
  made->addAdditionalArea(L"21");
  made->AltDestination(L"yswg");
  made->AltLevel(L"A060");
  made->AltRoute(std::make_shared<SPFIBRoute>());
  made->AltRoute()->addNamed(L"wol");
  return made;
}

std::shared_ptr<SPFIBSpec> flight() {
  auto spec = std::make_shared<SPFIBSpec>();
  spec->Aircraft(L"VHABC");
  spec->TAS(L"N0120");
  spec->addStage(stageToCanberra());
  spec->addStage(stage(L"YSSY", L"YMML", at(2026, 11, 21, 4), stored(L" a1 ")));
  return spec;
}

constexpr const char* flightStart =
    "<acid>VHABC</acid>"
    "<stage><adep><loc>YSSY</loc></adep><etd>2026-11-20T22:00:00Z</etd>"
    "<ades><loc>YSCB</loc></ades><weight-category>M</weight-category><level>A080</level>"
    "<route><waypoints><loc>WOL</loc></waypoints>"
    "<waypoints><coord><lat>-34.700000</lat><long>149.600000</long></coord></waypoints>"
    "<waypoints><bear-dist><loc>SY</loc><bear>45</bear><dist>025</dist></bear-dist></waypoints>"
    "</route><additional-loc>YSBK</additional-loc><area>21</area>"
    "<alternate><ades><loc>YSWG</loc></ades><level>A060</level>"
    "<route><waypoints><loc>WOL</loc></waypoints></route></alternate></stage>"
    "<stage><adep><loc>YSSY</loc></adep><etd>2026-11-21T04:00:00Z</etd>"
    "<ades><loc>YMML</loc></ades><weight-category>L</weight-category><level>F180</level>"
    "<route><route-id>A1</route-id></route></stage>"
    "<tas>N0120</tas>";

class BulletinExchange : public simulator::Exchange {
 protected:
  BulletinExchange() { request.SPFIBSpec(flight()); }

  /// Asks for the bulletin; its number.
  std::wstring requestNumber() {
    const auto bulletin = request.submit();
    EXPECT_TRUE(succeeded(bulletin));
    const std::wstring title = bulletin->Content().substr(0, bulletin->Content().find(L'\n'));
    return title.substr(title.find_last_of(L' ') + 1);
  }

  SPFIBRqs request;
};

INSTANTIATE_TEST_SUITE_P(Schemes, BulletinExchange, testing::Bool(), simulator::schemeName);

TEST_P(BulletinExchange, BriefsTheFlightWithAllThatWasAskedFor) {
  for (int bit = 0; bit <= 6; ++bit) request.SPFIBSpec()->setFlag(bit, true);
  request.setFlag(3, true);
  request.briefingReq().From(at(2026, 11, 20, 20));
  request.briefingReq().Till(at(2026, 11, 21, 4));
  request.Duration(12);
  request.GroupId(L"CLUB");
  const auto bulletin = request.submit();
  ASSERT_TRUE(succeeded(bulletin));
  EXPECT_EQ(lastRequest(),
            requestOf("spfib-rqs",
                      "<period><from>2026-11-20T20:00:00Z</from><till>2026-11-21T04:00:00Z</till>"
                      "</period><duration>PT12H</duration>"
                      "<group-id><group-name>CLUB</group-name></group-id>"
                      "<spfib><domestic>true</domestic>" +
                          std::string(flightStart) +
                          "<exp-wind>true</exp-wind><intl-series-notam>true</intl-series-notam>"
                          "<full-text-notam>true</full-text-notam><charts>true</charts>"
                          "<mid-sigwx-gpwt>true</mid-sigwx-gpwt><variant>HI</variant></spfib>"));

  const std::wstring text = bulletin->Content();
  EXPECT_EQ(text.find(L"SPECIFIC PRE-FLIGHT INFORMATION BULLETIN "), 0U);
  EXPECT_TRUE(holds(text,
                    L"\nPREPARED 2026-11-20 0600 UTC FOR DEMO\n"
                    L"VALID FROM 2026-11-20 2000 UTC TO 2026-11-21 0800 UTC\n"
                    L"AIRCRAFT VHABC  TAS N0120  DOMESTIC\n"));
  EXPECT_TRUE(holds(text,
                    L"\nSTAGE 1 YSSY TO YSCB\n--------------------\n"
                    L"  ETD 2026-11-20T22:00:00Z  LEVEL A080\n"
                    L"  ROUTE DCT WOL DCT 3442S14936E DCT SY045025 DCT\n"
                    L"  ALTERNATE YSWG  LEVEL A060\n"
                    L"WIND AND TEMPERATURE A080\n  YSSY 202200 "));
  EXPECT_TRUE(holds(text, L"\n  WOL 202221 "));
  for (const wchar_t* place : {L"YSSY SYDNEY/KINGSFORD SMITH", L"YSCB CANBERRA",
                               L"YSWG WAGGA WAGGA", L"YSBK SYDNEY/BANKSTOWN"}) {
    EXPECT_TRUE(holds(text, std::wstring(L"\n") + place + L"\nAERODROME FORECAST\n  TAF "))
        << place;
  }
  EXPECT_TRUE(holds(text, L"\nAREA FORECAST 21\n"));
  EXPECT_TRUE(holds(text,
                    L"\nSTAGE 2 YSSY TO YMML\n--------------------\n"
                    L"  ETD 2026-11-21T04:00:00Z  LEVEL F180\n"
                    L"  ROUTE DCT WOL H65 RAZZI Q29 LIZZI DCT\n"
                    L"WIND AND TEMPERATURE F180\n  YSSY 210400 "));
  EXPECT_TRUE(holds(text, L"\n  C1042/24 NOTAMN\n  A) YSSY\n"));
  EXPECT_TRUE(holds(text, L"\n  H1392/24 NOTAMN\n  A) YSHO\n"));

  EXPECT_EQ(bulletin->Product(), L"");
  ASSERT_EQ(bulletin->Count(), 4);
  EXPECT_EQ(bulletin->Images().size(), 4U);
  for (const auto& item : *bulletin) {
    EXPECT_EQ(item->ProductType(), L"PNG");
    EXPECT_TRUE(isPng(item->File()));
  }
  EXPECT_EQ(bulletin->Item(0), nullptr);
  EXPECT_EQ(bulletin->Item(5), nullptr);
}

TEST_P(BulletinExchange, LeavesOutWhatWasNotAskedFor) {
  const auto bulletin = request.submit();
  ASSERT_TRUE(succeeded(bulletin));
  EXPECT_EQ(lastRequest(),
            requestOf("spfib-rqs",
                      "<spfib><domestic>false</domestic>" + std::string(flightStart) +
                          "<exp-wind>false</exp-wind><intl-series-notam>false</intl-series-notam>"
                          "<full-text-notam>false</full-text-notam><charts>false</charts>"
                          "<mid-sigwx-gpwt>false</mid-sigwx-gpwt><variant>LO</variant></spfib>"));
  const std::wstring text = bulletin->Content();
  EXPECT_TRUE(holds(text, L"\nVALID FROM 2026-11-20 0600 UTC TO 2026-11-21 0600 UTC\n"));
  EXPECT_TRUE(holds(text, L"  TAS N0120  INTERNATIONAL\n"));
  EXPECT_TRUE(holds(text, L"\n  C1042/24-YSSY RWY 07/25 NOT AVBL DUE WIP\n"));
  EXPECT_FALSE(holds(text, L"WIND AND TEMPERATURE A080\n"));
  EXPECT_FALSE(holds(text, L"NOTAMN"));
  EXPECT_FALSE(holds(text, L"YSHO"));
  EXPECT_EQ(bulletin->Count(), 0);
}

TEST_P(BulletinExchange, TakesARouteCodeOfTheRouteDirectory) {
  RouteDirectoryRqs routes;
  routes.Depart(L"YMML");
  routes.Destination(L"YMHB");
  const auto directory = routes.submit();
  ASSERT_EQ(directory->Count(), 1);
  const auto listed = directory->Item(1);
  auto spec = std::make_shared<SPFIBSpec>();
  spec->Aircraft(L"VHABC");
  spec->addStage(stage(listed->Depart().c_str(), listed->Destination().c_str(),
                       at(2026, 11, 20, 22), stored(listed->RouteCode().c_str())));
  request.SPFIBSpec(spec);
  const auto bulletin = request.submit();
  ASSERT_TRUE(succeeded(bulletin));
  EXPECT_TRUE(holds(bulletin->Content(), L"\n  ROUTE DCT DUNBO Q169 MORGO DCT\n"));
}

std::shared_ptr<ActiveSPFIBDirectoryRsp> directory(const wchar_t* group = L"") {
  ActiveSPFIBDirectoryRqs request;
  request.GroupId(group);
  return request.submit();
}

/// The entry of a bulletin; no object when the directory does not list it.
std::shared_ptr<SPFIBDescriptor> entryOf(const ActiveSPFIBDirectoryRsp& directory,
                                         const std::wstring& number) {
  const auto found = std::ranges::find_if(
      directory, [&](const auto& listed) { return listed->Number() == number; });
  return found == directory.end() ? nullptr : *found;
}

TEST_P(BulletinExchange, ListsTheBulletinsOfAGroup) {
  const auto list = directory(L"CLUB");
  ASSERT_TRUE(succeeded(list));
  EXPECT_EQ(lastRequest(), requestOf("active-spfib-dir-rqs",
                                     "<group-id><group-name>CLUB</group-name></group-id>"));
  ASSERT_GE(list->Count(), 1);
  EXPECT_EQ(list->Item(1)->Number(), L"1001");
  EXPECT_EQ(list->Item(1)->Aircraft(), L"VHNSM");
  EXPECT_EQ(list->Item(1)->DTG(), at(2026, 11, 20, 6));
  EXPECT_EQ(list->Item(0), nullptr);
  EXPECT_EQ(list->Item(static_cast<std::int16_t>(list->Count() + 1)), nullptr);

  const auto none = directory(L"RESCUE");
  ASSERT_TRUE(succeeded(none));
  EXPECT_EQ(none->Count(), 0);
  EXPECT_EQ(none->Item(1), nullptr);
}

TEST_P(BulletinExchange, ListsABulletinForItsOwnerAndForItsGroupOnly) {
  const std::wstring own = requestNumber();
  request.GroupId(L"CLUB");
  const std::wstring ofGroup = requestNumber();
  const auto ofOwner = directory();
  ASSERT_TRUE(succeeded(ofOwner));
  EXPECT_EQ(lastRequest(), requestOf("active-spfib-dir-rqs", ""));
  ASSERT_NE(entryOf(*ofOwner, own), nullptr);
  EXPECT_EQ(entryOf(*ofOwner, own)->Aircraft(), L"VHABC");
  EXPECT_EQ(entryOf(*ofOwner, own)->DTG(), at(2026, 11, 20, 6));
  EXPECT_NE(entryOf(*ofOwner, ofGroup), nullptr);
  const auto club = directory(L"CLUB");
  ASSERT_TRUE(succeeded(club));
  EXPECT_EQ(entryOf(*club, own), nullptr);
  EXPECT_NE(entryOf(*club, ofGroup), nullptr);
}

std::shared_ptr<GetSPFIBRsp> get(const std::wstring& number) {
  GetSPFIBRqs request;
  request.Number(number);
  return request.submit();
}

void expectStage(const SPFIBStageSpec& stage, const wchar_t* departing, const wchar_t* destination,
                 DateTime etd) {
  EXPECT_EQ(stage.Departing(), departing);
  EXPECT_EQ(stage.Destination(), destination);
  EXPECT_EQ(stage.ETD(), etd);
}

TEST_P(BulletinExchange, FetchesWhatABulletinWasAskedFor) {
  const auto held = get(L"1001");
  ASSERT_TRUE(succeeded(held));
  EXPECT_EQ(lastRequest(), requestOf("get-spfib-rqs", "<number>1001</number>"));
  EXPECT_EQ(held->Duration(), L"PT24H");
  ASSERT_NE(held->SPFIBSpec(), nullptr);
  EXPECT_EQ(held->SPFIBSpec()->TAS(), L"N0440");
  ASSERT_EQ(held->SPFIBSpec()->Count(), 1);
  const auto stage = held->SPFIBSpec()->Item(1);
  expectStage(*stage, L"YSSY", L"YMML", at(2026, 11, 20, 8));
  EXPECT_EQ(held->SPFIBSpec()->Aircraft(), L"NOSEND") << "nothing else is read back";
  EXPECT_FALSE(held->SPFIBSpec()->flag(0));
  EXPECT_EQ(stage->Level(), L"F180");
  EXPECT_EQ(stage->AltDestination(), L"");
  EXPECT_EQ(stage->Route(), nullptr);
}

TEST_P(BulletinExchange, HoldsARequestedBulletinUntilItIsUpdated) {
  request.Duration(12);
  const std::wstring number = requestNumber();
  const auto held = get(number);
  ASSERT_TRUE(succeeded(held));
  EXPECT_EQ(held->Duration(), L"PT12H");
  ASSERT_EQ(held->SPFIBSpec()->Count(), 2);
  EXPECT_EQ(held->SPFIBSpec()->TAS(), L"N0120");
  expectStage(*held->SPFIBSpec()->Item(1), L"YSSY", L"YSCB", at(2026, 11, 20, 22));
  expectStage(*held->SPFIBSpec()->Item(2), L"YSSY", L"YMML", at(2026, 11, 21, 4));

  UpdateSPFIBRqs update;
  update.SPFIBNumber(number);
  update.Duration(6);
  const auto updated = update.submit();
  ASSERT_TRUE(succeeded(updated));
  const std::string element = "<number>" + text::toUtf8(number) + "</number>";
  EXPECT_EQ(lastRequest(), requestOf("update-spfib-rqs", "<duration>6</duration>" + element +
                                                             "<stage include=\"true\"/>"));
  EXPECT_EQ(updated->Content().find(L"SPECIFIC PRE-FLIGHT INFORMATION BULLETIN " + number + L"\n"),
            0U);
  EXPECT_TRUE(
      holds(updated->Content(), L"\nVALID FROM 2026-11-20 0600 UTC TO 2026-11-20 1200 UTC\n"));
  EXPECT_TRUE(holds(updated->Content(), L"\nSTAGE 1 YSSY TO YSCB\n"));
  EXPECT_FALSE(holds(updated->Content(), L"\nSTAGE 2 "));
  EXPECT_EQ(get(number)->Duration(), L"PT6H");

  update.Duration(0);
  update.briefingReq().From(at(2026, 11, 20, 20));
  update.briefingReq().Till(at(2026, 11, 21, 6));
  update.StageCount(2);
  const auto again = update.submit();
  ASSERT_TRUE(succeeded(again));
  EXPECT_EQ(lastRequest(),
            requestOf("update-spfib-rqs",
                      "<period><from>2026-11-20T20:00:00Z</from><till>2026-11-21T06:00:00Z</till>"
                      "</period>" +
                          element + "<stage include=\"true\"/><stage include=\"true\"/>"));
  EXPECT_TRUE(
      holds(again->Content(), L"\nVALID FROM 2026-11-20 2000 UTC TO 2026-11-21 0600 UTC\n"));
  EXPECT_TRUE(holds(again->Content(), L"\nSTAGE 1 YSSY TO YSCB\n"));
  EXPECT_TRUE(holds(again->Content(), L"\nSTAGE 2 YSSY TO YMML\n"));
  EXPECT_EQ(get(number)->Duration(), L"PT10H");
}

TEST_P(BulletinExchange, UpdatesABulletinWithTheChartsThatItWasAskedFor) {
  request.SPFIBSpec()->setFlag(4, true);
  UpdateSPFIBRqs update;
  update.SPFIBNumber(requestNumber());
  update.briefingReq().Duration(6);
  const auto updated = update.submit();
  ASSERT_TRUE(succeeded(updated));
  EXPECT_NE(lastRequest().find("<ndd:duration>PT06H</ndd:duration>"), std::string::npos);
  ASSERT_EQ(updated->Count(), 2);
  for (const auto& item : *updated) {
    EXPECT_EQ(item->ProductType(), L"PNG");
    EXPECT_TRUE(isPng(item->File()));
  }
}

TEST_P(BulletinExchange, ListsTheNotamsOfARequestedBulletinAndFetchesTheirText) {
  request.SPFIBSpec()->setFlag(2, true);
  ViewNOTAMListForSPFIBRqs listRequest;
  listRequest.SPFIBNo(requestNumber());
  const auto list = listRequest.submit();
  ASSERT_TRUE(succeeded(list));
  EXPECT_EQ(list->SPFIBNumber(), listRequest.SPFIBNo());
  std::vector<std::wstring> ids;
  RetrieveFullTextNotamRqs textRequest;
  for (const auto& notam : *list) {
    ids.push_back(notam->NotamId() + L' ' + notam->Location());
    textRequest.addKey(notam->NotamKey());
  }
  EXPECT_EQ(ids, (std::vector<std::wstring>{L"C1042/24 YSSY", L"C1049/24 YSSY", L"C1056/24 YSSY",
                                            L"C1238/24 YSCB", L"C1273/24 YSWG", L"C1063/24 YSBK",
                                            L"C1077/24 YMML", L"C1084/24 YMML", L"F1322/24 YMMM",
                                            L"F1329/24 YMMM", L"F1336/24 YMMM", L"F1343/24 YMMM",
                                            L"F1350/24 YMMM", L"H1392/24 YSHO", L"H1399/24 YSHO",
                                            L"H1406/24 YSHO", L"H1413/24 YSHO"}));
  const auto texts = textRequest.submit();
  ASSERT_TRUE(succeeded(texts));
  for (const auto& notam : *list) {
    EXPECT_TRUE(
        holds(texts->Content(), notam->NotamId() + L" NOTAMN\nA) " + notam->Location() + L"\n"));
  }
}

TEST_P(BulletinExchange, IsRefusedABulletinThatIsNotHeld) {
  const auto held = get(L"999");
  EXPECT_TRUE(refused(held, L"No bulletin 999 is held for you"));
  EXPECT_EQ(held->SPFIBSpec(), nullptr);
  EXPECT_EQ(held->Duration(), L"");
  UpdateSPFIBRqs update;
  update.SPFIBNumber(L"999");
  const auto updated = update.submit();
  EXPECT_TRUE(refused(updated, L"No bulletin 999 is held for you"));
  EXPECT_EQ(updated->Content(), L"");
  EXPECT_EQ(updated->Count(), 0);
}

TEST_P(BulletinExchange, IsRefusedForAWrongPassword) {
  NAIPSConfig().Password(L"wrong");
  const auto bulletin = request.submit();
  EXPECT_TRUE(refused(bulletin, L"Invalid user name or password"));
  EXPECT_EQ(bulletin->Content(), L"");
  const auto list = directory();
  EXPECT_TRUE(refused(list, L"Invalid user name or password"));
  EXPECT_EQ(list->Count(), 0);
}

}  // namespace
