#include "tests/support/date_time.h"
#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/notification/filing.h>
#include <ktpnaips/notification/notification_directory.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

using namespace ktpnaips;
using ktpnaips::test::at;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

class FilingExchange : public simulator::Exchange {};

INSTANTIATE_TEST_SUITE_P(Schemes, FilingExchange, testing::Bool(), simulator::schemeName);

/// A route with a segment of every kind.
std::shared_ptr<ICAORoute> wholeRoute() {
  auto route = std::make_shared<ICAORoute>();
  route->Speed(L" n0450 ");
  route->Level(L"f350");
  const auto add = [&](auto fill) {
    const auto segment = std::make_shared<ICAORouteSegment>();
    fill(*segment);
    route->Add(segment);
  };
  add([](auto& segment) { segment.setNamed(L" wol "); });
  add([](auto& segment) {
    segment.ATSRouteId(L"h65");
    segment.setNamed(L"razzi");
    segment.NewSpeed(L"n0440");
    segment.NewLevel(L"f330");
  });
  add([](auto& segment) { segment.setLatLon(-35.5, 147.25); });
  add([](auto& segment) {
    segment.setBearingDistance(L"sy", 45, 25);
    segment.NewSpeed(L"n0430");
    segment.NewLevel(L"f350");
    segment.CCLevel(L"plus");
  });
  add([](auto& segment) {
    segment.ATSRouteId(L"dct");
    segment.NewRules(L"vfr");
  });
  return route;
}

constexpr std::string_view wholeRouteSent =
    "<route><speed>N0450</speed><level>F350</level>"
    "<segment><waypoint><loc>WOL</loc></waypoint></segment>"
    "<segment><ats-route>H65</ats-route><waypoint><loc>RAZZI</loc></waypoint>"
    "<new-speed>N0440</new-speed><new-level>F330</new-level></segment>"
    "<segment><waypoint><coord><lat>-35.500000</lat><long>147.250000</long></coord></waypoint>"
    "</segment>"
    "<segment><waypoint><bear-dist><loc>SY</loc><bear>45</bear><dist>025</dist></bear-dist>"
    "</waypoint><new-speed>N0430</new-speed><new-level>F350</new-level>"
    "<cc-level>PLUS</cc-level></segment>"
    "<segment><ats-route>DCT</ats-route><new-rules>VFR</new-rules></segment></route>";

std::shared_ptr<ICAOOtherInfo> wholeOtherInfo() {
  auto info = std::make_shared<ICAOOtherInfo>();
  info->EET(L"ymmm0020");
  info->RIF(L"dta yscb");
  info->SEL(L"abcd");
  info->OPR(L"demo  air");
  info->STS(L"hosp, medevac");
  info->PER(L"cat");
  info->COM(L"sat phone");
  info->NAV(L"gbas");
  info->DAT(L"v");
  info->DEP(L"farm 1");
  info->Dest(L"farm 2");
  info->ALTN(L"farm 3");
  info->RALT(L"yswg");
  info->Code(L"7c1234");
  info->RMK(L"demo  flight");
  info->TYP(L"b738");
  info->DLA(L"wol0030");
  info->PBN(L"a1b2");
  info->SUR(L"260b");
  info->ORGN(L"yssyzpzx");
  info->TALT(L"ysbk");
  return info;
}

std::shared_ptr<SarTimeInfo> sarTime() {
  auto info = std::make_shared<SarTimeInfo>();
  info->TBA(false);
  info->Time(at(2026, 11, 21, 2, 30));
  info->ATSUnit(L"censar");
  info->EndPoint(L"arrival");
  info->Location(L"ymml");
  return info;
}

constexpr std::string_view sarTimeSent =
    "<sartime>2026-11-21T02:30:00Z</sartime><ats-unit>CENSAR</ats-unit>"
    "<endpoint>ARRIVAL</endpoint><location>YMML</location>";

std::shared_ptr<PilotContactInfo> pilot() {
  auto contact = std::make_shared<PilotContactInfo>();
  contact->Name(L"d  demo");
  contact->Phone(L"0400 000 000");
  return contact;
}

std::shared_ptr<ICAOSupplInfo> supplement() {
  auto info = std::make_shared<ICAOSupplInfo>();
  info->Endurance(270);
  info->POB(4);
  for (const int bit : {1, 4, 5, 7, 9, 10, 13}) info->setFlag(bit, true);
  info->DinghyCount(2);
  info->DinghyCapacity(8);
  info->DinghyCovered(true);
  info->AircraftColour(L"white");
  info->Remarks(L"nil");
  info->Pilot(pilot());
  return info;
}

/// With every member set.
std::shared_ptr<ICAOFlightNotifStage> wholeStage() {
  auto stage = std::make_shared<ICAOFlightNotifStage>();
  stage->Registration(L" vhfpl ");
  stage->AltDestination(L"ymav");
  stage->Aircraft(L" vhfpl ");
  stage->FlightRules(L"ifr");
  stage->TypeOfFlight(L"scheduled");
  stage->AircraftType(L"b738");
  stage->WTC(L"medium");
  stage->NavComEquip(L"s d f g e2 j5");
  stage->SSREquip(L"l b1");
  stage->Depart(L" yssy ");
  stage->Destination(L" ymml ");
  stage->TEET(90);
  stage->ETD(at(2026, 11, 20, 22));
  stage->NumAircraft(2);
  stage->ADS(true);
  stage->Route(wholeRoute());
  stage->OtherInfo(wholeOtherInfo());
  stage->SARTime(sarTime());
  stage->SupplInfo(supplement());
  return stage;
}

/// With what a stage needs.
std::shared_ptr<ICAOFlightNotifStage> plainStage() {
  auto stage = std::make_shared<ICAOFlightNotifStage>();
  stage->Aircraft(L"VHFPL");
  stage->Depart(L"YMML");
  stage->Destination(L"YSCB");
  stage->TEET(65);
  stage->ETD(at(2026, 11, 21, 4));
  stage->Route(std::make_shared<ICAORoute>());
  return stage;
}

constexpr std::string_view newPlainStageSent =
    "<stage number=\"2\"><acid>VHFPL</acid><frul>V</frul><ftyp>G</ftyp><num-acft>1</num-acft>"
    "<atyp>ZZZZ</atyp><wtc>L</wtc><nav-com-equip>N</nav-com-equip><surv-equip>N</surv-equip>"
    "<adep>YMML</adep><etd>2026-11-21T04:00:00Z</etd><ades>YSCB</ades><teet>PT01H05M</teet>"
    "<route><speed>N0100</speed><level>A080</level></route><reg/><other-info/></stage>";

constexpr std::string_view stageStartSent =
    "<stage number=\"1\"><acid>VHFPL</acid><frul>I</frul><ftyp>S</ftyp><num-acft>2</num-acft>"
    "<atyp>B738</atyp><wtc>M</wtc>";

constexpr std::string_view stageTimesSent =
    "<adep> yssy </adep><etd>2026-11-20T22:00:00Z</etd><ades>YMML</ades><teet>PT01H30M</teet>"
    "<altn>YMAV</altn>";

std::string supplementSent(std::string_view persons, std::string_view survival) {
  return "<suppl-info><end>PT04H30M</end><pob>" + std::string(persons) +
         "</pob><radios uhf=\"false\" vhf=\"true\" elt-406-MHz=\"true\"/><survival " +
         std::string(survival) +
         "/><jackets light=\"true\" fluor=\"false\" uhf=\"false\" vhf=\"true\"/>"
         "<dinghies><number>2</number><capacity>8</capacity><covered>true</covered>"
         "<colour>YELLOW</colour></dinghies><acft-col-mark>WHITE</acft-col-mark><rmk>NIL</rmk>"
         "<pilot name=\"D DEMO\" phone=\"0400 000 000\"/></suppl-info>";
}

constexpr std::string_view clubSent = "<group-id><group-name>CLUB</group-name></group-id>";

std::string joined(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text += part;
  return text;
}

constexpr const wchar_t* routeText =
    L"WOL H65 RAZZI/N0440F330 3530S14715E C/SY045025/N0430F350PLUS DCT VFR";

std::shared_ptr<SubmitICAOFlightNotifRsp> fileTwoStages(const wchar_t* group) {
  SubmitICAOFlightNotifRqs request;
  request.Notification()->Domestic(false);
  request.Notification()->Add(wholeStage());
  request.Notification()->Add(plainStage());
  request.IgnoreTypeMismatch(true);
  request.GroupId(group);
  return request.submit();
}

TEST_P(FilingExchange, FilesAFlightPlanOfTwoStagesInTheNewerForm) {
  NAIPSConfig().NewFPLFormat(true);
  const auto filed = fileTwoStages(L"CLUB");
  ASSERT_TRUE(succeeded(filed));
  EXPECT_EQ(
      lastRequest(),
      requestOf(
          "submit-icao-fn-rqs",
          joined({"<flight-notif><domestic>false</domestic>", stageStartSent,
                  "<nav-com-equip>S D F G E2 J5</nav-com-equip><surv-equip>L B1</surv-equip>",
                  stageTimesSent, wholeRouteSent,
                  "<reg>VHFPL</reg><other-info><sts>HOSP MEDEVAC</sts><pbn>A1 B2</pbn>"
                  "<nav>GBAS</nav><com>SAT PHONE</com><dat>V</dat><sur>260B</sur><dep>FARM 1</dep>"
                  "<dest>FARM 2</dest><eet>YMMM0020</eet><sel>ABCD</sel><typ>B738</typ>"
                  "<code>7C1234</code><dle>WOL0030</dle><opr>DEMO AIR</opr><orgn>YSSYZPZX</orgn>"
                  "<per>C</per><altn>FARM 3</altn><ralt>YSWG</ralt><talt>YSBK</talt>"
                  "<rif>DTA YSCB</rif><rmk>DEMO FLIGHT</rmk></other-info><sartimeinfo>",
                  sarTimeSent, "</sartimeinfo>",
                  supplementSent("4",
                                 "polar=\"false\" desert=\"true\" maritime=\"true\" "
                                 "jungle=\"false\""),
                  "</stage>", newPlainStageSent, "</flight-notif>", clubSent}),
          " ignore-atyp-reg=\"true\""));

  ASSERT_EQ(filed->Count(), 2);
  EXPECT_EQ(filed->Item(1),
            std::wstring(L"(FPL-VHFPL-IS\n"
                         L"-2B738/M-SDFGE2J5/LB1\n"
                         L"-YSSY2200\n"
                         L"-N0450F350 ") +
                routeText +
                L"\n"
                L"-YMML0130 YMAV\n"
                L"-STS/HOSP MEDEVAC PBN/A1B2 NAV/GBAS COM/SAT PHONE DAT/V SUR/260B DEP/FARM 1 "
                L"DEST/FARM 2 DOF/261120 REG/VHFPL EET/YMMM0020 SEL/ABCD TYP/B738 CODE/7C1234 "
                L"DLE/WOL0030 OPR/DEMO AIR ORGN/YSSYZPZX PER/C ALTN/FARM 3 RALT/YSWG TALT/YSBK "
                L"RIF/DTA YSCB RMK/DEMO FLIGHT SARTIME 210230 CENSAR ARRIVAL YMML\n"
                L"-E/0430 P/4 R/VE S/DM J/LV D/2 8 C YELLOW A/WHITE N/NIL "
                L"C/D DEMO 0400 000 000)");
  EXPECT_EQ(filed->Item(2),
            L"(FPL-VHFPL-VG\n-ZZZZ/L-N/N\n-YMML0400\n-N0100A080 DCT\n-YSCB0105\n-DOF/261121)");
  EXPECT_EQ(filed->Item(0), L"");
  EXPECT_EQ(filed->Item(3), L"");
}

TEST_P(FilingExchange, FilesAFlightPlanInTheOlderFormWithDomesticSurvivalEquipment) {
  NAIPSConfig().NewFPLFormat(false);
  NAIPSConfig().DisableICAO(true);
  SubmitICAOFlightNotifRqs request;
  const auto stage = wholeStage();
  stage->SupplInfo()->POBTBA(true);
  request.Notification()->Add(stage);
  const auto filed = request.submit();
  ASSERT_TRUE(succeeded(filed));
  EXPECT_EQ(
      lastRequest(),
      requestOf(
          "submit-icao-fn-rqs",
          joined({"<flight-notif><domestic>true</domestic>", stageStartSent,
                  "<nav-com-equip>SDFGE2J5</nav-com-equip>"
                  "<ssr-equip ads=\"true\"><equip>LB1</equip></ssr-equip>",
                  stageTimesSent, wholeRouteSent,
                  "<reg>VHFPL</reg><other-info><eet>YMMM0020</eet><rif>DTA YSCB</rif>"
                  "<sel>ABCD</sel><opr>DEMO AIR</opr><sts>HOSP, MEDEVAC</sts><per>C</per>"
                  "<com>SAT PHONE</com><nav>GBAS</nav><dat>V</dat><dep>FARM 1</dep>"
                  "<dest>FARM 2</dest><altn>FARM 3</altn><ralt>YSWG</ralt><code>7C1234</code>"
                  "<rmk>DEMO FLIGHT</rmk><typ>B738</typ><dla>WOL0030</dla></other-info>"
                  "<sartimeinfo>",
                  sarTimeSent, "</sartimeinfo>",
                  supplementSent("TBA", "first-aid=\"true\" rations=\"false\" water=\"true\""),
                  "</stage></flight-notif>"}),
          " ignore-atyp-reg=\"false\""));
  ASSERT_EQ(filed->Count(), 1);
  const std::wstring text = filed->Item(1);
  EXPECT_TRUE(simulator::holds(text, L"\n-2B738/M-SDFGE2J5/LB1D\n"));
  EXPECT_TRUE(simulator::holds(text, L" DLA/WOL0030 "));
  EXPECT_TRUE(simulator::holds(text,
                               L"\n-E/0430 P/TBN R/VE J/LV D/2 8 C YELLOW A/WHITE N/NIL "
                               L"FIRST AID KIT WATER C/D DEMO 0400 000 000)"));
}

std::shared_ptr<ActiveFlightNotifDirRsp> directory(const wchar_t* aircraft, const wchar_t* group) {
  ActiveFlightNotifDirRqs request;
  request.Aircraft(aircraft);
  request.GroupId(group);
  return request.submit();
}

void expectFlight(const ActiveFlightNotifDetails& flight, const wchar_t* group,
                  const wchar_t* aircraft, const std::wstring& route) {
  EXPECT_FALSE(flight.Id().empty());
  EXPECT_EQ(flight.OwnerId(), L"DEMO");
  EXPECT_EQ(flight.GroupId(), group);
  EXPECT_EQ(flight.DTG(), at(2026, 11, 20, 6));
  EXPECT_EQ(flight.Aircraft(), aircraft);
  EXPECT_EQ(flight.Route(), route);
}

TEST_P(FilingExchange, ListsTheFlightsOfAGroup) {
  const auto list = directory(L"", L"CLUB");
  ASSERT_TRUE(succeeded(list));
  EXPECT_EQ(lastRequest(), requestOf("active-fn-dir-rqs", clubSent));
  ASSERT_GE(list->Count(), 1);
  EXPECT_EQ(list->Item(1)->Id(), L"5001");
  expectFlight(*list->Item(1), L"CLUB", L"VHNSM", L"YSSY WOL H65 RAZZI Q29 LIZZI YMML");
  EXPECT_EQ(list->Item(0), nullptr);
  EXPECT_EQ(list->Item(static_cast<std::int16_t>(list->Count() + 1)), nullptr);
}

TEST_P(FilingExchange, ListsTheFlightsOfAnAircraft) {
  const auto list = directory(L" vhnsm ", L"");
  ASSERT_TRUE(succeeded(list));
  EXPECT_EQ(lastRequest(), requestOf("active-fn-dir-rqs", "<acid>VHNSM</acid>"));
  ASSERT_EQ(list->Count(), 1);
  EXPECT_EQ(list->Item(1)->Id(), L"5001");
  const auto none = directory(L"VHNON", L"");
  ASSERT_TRUE(succeeded(none));
  EXPECT_EQ(none->Count(), 0);
  EXPECT_EQ(none->Item(1), nullptr);
}

TEST_P(FilingExchange, ListsEachStageOfAFiledFlightPlanByAircraftAndGroup) {
  const auto before = directory(L"VHFPL", L"CLUB")->Count();
  ASSERT_TRUE(succeeded(fileTwoStages(L"CLUB")));
  const auto list = directory(L"VHFPL", L"CLUB");
  ASSERT_TRUE(succeeded(list));
  EXPECT_EQ(lastRequest(),
            requestOf("active-fn-dir-rqs", std::string(clubSent) + "<acid>VHFPL</acid>"));
  ASSERT_EQ(list->Count(), before + 2);
  const auto first = list->Item(static_cast<std::int16_t>(before + 1));
  const auto second = list->Item(static_cast<std::int16_t>(before + 2));
  expectFlight(*first, L"CLUB", L"VHFPL", std::wstring(L"YSSY ") + routeText + L" YMML");
  expectFlight(*second, L"CLUB", L"VHFPL", L"YMML DCT YSCB");
  EXPECT_NE(first->Id(), second->Id());
}

TEST_P(FilingExchange, ListsAFlightPlanOfNoGroupForItsOwnerOnly) {
  const auto ofOwner = directory(L"VHFPL", L"")->Count();
  const auto ofGroup = directory(L"VHFPL", L"CLUB")->Count();
  ASSERT_TRUE(succeeded(fileTwoStages(L"")));
  EXPECT_EQ(directory(L"VHFPL", L"CLUB")->Count(), ofGroup);
  const auto list = directory(L"VHFPL", L"");
  ASSERT_EQ(list->Count(), ofOwner + 2);
  expectFlight(*list->Item(list->Count()), L"", L"VHFPL", L"YMML DCT YSCB");
}

TEST_P(FilingExchange, FilesNothingAndListsNothingForAWrongPassword) {
  const auto before = directory(L"", L"")->Count();
  NAIPSConfig().Password(L"wrong");
  const auto filed = fileTwoStages(L"");
  EXPECT_TRUE(refused(filed, L"Invalid user name or password"));
  EXPECT_EQ(filed->Count(), 0);
  const auto list = directory(L"VHNSM", L"");
  EXPECT_TRUE(refused(list, L"Invalid user name or password"));
  EXPECT_EQ(list->Count(), 0);
  NAIPSConfig().Password(simulator::password);
  EXPECT_EQ(directory(L"", L"")->Count(), before);
}

}  // namespace
