#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/notification/icao_notification.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "tests/support/date_time.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/fault.h"
#include "tests/support/local_clock.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

using test::at;
using test::part;
using test::written;

class IcaoStage : public testing::Test {
 protected:
  IcaoStage() { stage.ETD(at(2025, 3, 7, 23, 5)); }

  static void useNewFormat() { NAIPSConfig().NewFPLFormat(true); }

  std::string element(const std::string& name) const { return test::writtenElement(stage, name); }

  ICAOFlightNotifStage stage;

 private:
  test::FreshSettings settings_;
};

const char* const upToEquipment =
    "<ndd:acid>NOSEND</ndd:acid><ndd:frul>V</ndd:frul><ndd:ftyp>G</ndd:ftyp>"
    "<ndd:num-acft>1</ndd:num-acft><ndd:atyp>ZZZZ</ndd:atyp><ndd:wtc>L</ndd:wtc>";
const char* const oldEquipment =
    "<ndd:nav-com-equip>N</ndd:nav-com-equip>"
    "<ndd:ssr-equip ads=\"false\"><ndd:equip>N</ndd:equip></ndd:ssr-equip>";
const char* const fromDeparture =
    "<ndd:adep>UNKNOWN</ndd:adep><ndd:etd>2025-03-07T23:05:00Z</ndd:etd>"
    "<ndd:ades>UNKNOWN</ndd:ades><ndd:teet>PT00H00M</ndd:teet>";

TEST_F(IcaoStage, HasItsDefaults) {
  EXPECT_EQ(stage.Registration(), L"");
  EXPECT_EQ(stage.AltDestination(), L"");
  EXPECT_EQ(stage.Aircraft(), L"NOSEND");
  EXPECT_EQ(stage.FlightRules(), L"V");
  EXPECT_EQ(stage.TypeOfFlight(), L"G");
  EXPECT_EQ(stage.AircraftType(), L"ZZZZ");
  EXPECT_EQ(stage.WTC(), L"L");
  EXPECT_EQ(stage.NavComEquip(), L"N");
  EXPECT_EQ(stage.SSREquip(), L"N");
  EXPECT_EQ(stage.Depart(), L"UNKNOWN");
  EXPECT_EQ(stage.Destination(), L"UNKNOWN");
  EXPECT_EQ(stage.TEET(), 0);
  EXPECT_EQ(stage.NumAircraft(), 1);
  EXPECT_FALSE(stage.ADS());
  EXPECT_EQ(stage.Route(), nullptr);
  EXPECT_EQ(stage.OtherInfo(), nullptr);
  EXPECT_EQ(stage.SARTime(), nullptr);
  EXPECT_EQ(stage.SupplInfo(), nullptr);
}

TEST_F(IcaoStage, DepartsAtTheLocalTimeOfItsCreationAtFirst) {
  const DateTime before = test::localNow();
  const ICAOFlightNotifStage fresh;
  EXPECT_GE(fresh.ETD(), before);
  EXPECT_LE(fresh.ETD(), test::localNow());
}

TEST_F(IcaoStage, SendsTheTimeOfItsCreationAsItStands) {
  const ICAOFlightNotifStage fresh;
  stage.ETD(fresh.ETD());
  EXPECT_EQ(test::writtenElement(fresh, "etd"), element("etd"));
}

TEST_F(IcaoStage, WritesItsDefaultsInTheOldFormat) {
  EXPECT_EQ(written(stage), part(std::string(upToEquipment) + oldEquipment + fromDeparture +
                                 "<ndd:route/><ndd:reg/><ndd:other-info/>"));
}

TEST_F(IcaoStage, WritesItsDefaultsInTheNewFormat) {
  useNewFormat();
  EXPECT_EQ(written(stage), part(std::string(upToEquipment) +
                                 "<ndd:nav-com-equip>N</ndd:nav-com-equip>"
                                 "<ndd:surv-equip>N</ndd:surv-equip>" +
                                 fromDeparture + "<ndd:route/><ndd:reg/><ndd:other-info/>"));
}

/// A stage with every field and every part.
void fill(ICAOFlightNotifStage& stage) {
  stage.Registration(L"vh-abc");
  stage.AltDestination(L"ymmb");
  stage.Aircraft(L"vhabc");
  stage.FlightRules(L"I");
  stage.TypeOfFlight(L"S");
  stage.AircraftType(L"b738");
  stage.WTC(L"M");
  stage.NavComEquip(L"sdfge2j5");
  stage.SSREquip(L"eb1");
  stage.Depart(L"YMML");
  stage.Destination(L"yssy");
  stage.TEET(95);
  stage.NumAircraft(2);
  stage.ADS(true);
  stage.Route(std::make_shared<ICAORoute>());
  stage.OtherInfo(std::make_shared<ICAOOtherInfo>());
  stage.OtherInfo()->RMK(L"none");
  stage.SARTime(std::make_shared<SarTimeInfo>());
  stage.SupplInfo(std::make_shared<ICAOSupplInfo>());
}

const char* const filledUpToEquipment =
    "<ndd:acid>VHABC</ndd:acid><ndd:frul>I</ndd:frul><ndd:ftyp>S</ndd:ftyp>"
    "<ndd:num-acft>2</ndd:num-acft><ndd:atyp>B738</ndd:atyp><ndd:wtc>M</ndd:wtc>";
const char* const filledFromDeparture =
    "<ndd:adep>YMML</ndd:adep><ndd:etd>2025-03-07T23:05:00Z</ndd:etd><ndd:ades>YSSY</ndd:ades>"
    "<ndd:teet>PT01H35M</ndd:teet><ndd:altn>YMMB</ndd:altn>"
    "<ndd:route><ndd:speed>N0100</ndd:speed><ndd:level>A080</ndd:level></ndd:route>"
    "<ndd:reg>VH-ABC</ndd:reg><ndd:other-info><ndd:rmk>NONE</ndd:rmk></ndd:other-info>"
    "<ndd:sartimeinfo><ndd:sartimetban>TBA</ndd:sartimetban><ndd:ats-unit/><ndd:location/>"
    "</ndd:sartimeinfo>"
    "<ndd:suppl-info><ndd:radios uhf=\"false\" vhf=\"false\" elt-406-MHz=\"true\"/>"
    "<ndd:survival polar=\"false\" desert=\"false\" maritime=\"false\" jungle=\"false\"/>"
    "<ndd:jackets light=\"false\" fluor=\"false\" uhf=\"false\" vhf=\"false\"/>"
    "<ndd:pilot name=\"\" phone=\"\"/></ndd:suppl-info>";

TEST_F(IcaoStage, WritesEverythingInTheOldFormat) {
  fill(stage);
  EXPECT_EQ(written(stage),
            part(std::string(filledUpToEquipment) +
                 "<ndd:nav-com-equip>SDFGE2J5</ndd:nav-com-equip>"
                 "<ndd:ssr-equip ads=\"true\"><ndd:equip>EB1</ndd:equip></ndd:ssr-equip>" +
                 filledFromDeparture));
}

TEST_F(IcaoStage, WritesEverythingButAdsInTheNewFormat) {
  useNewFormat();
  fill(stage);
  EXPECT_EQ(written(stage), part(std::string(filledUpToEquipment) +
                                 "<ndd:nav-com-equip>S D F G E2 J5</ndd:nav-com-equip>"
                                 "<ndd:surv-equip>E B1</ndd:surv-equip>" +
                                 filledFromDeparture));
}

TEST_F(IcaoStage, TrimsAndUpperCasesItsNamesAndKeepsInnerSpaces) {
  stage.Registration(L"  vh  abc ");
  EXPECT_EQ(stage.Registration(), L"VH  ABC");
  stage.AltDestination(L" ym  mb ");
  EXPECT_EQ(stage.AltDestination(), L"YM  MB");
  stage.Destination(L" ys  sy ");
  EXPECT_EQ(stage.Destination(), L"YS  SY");
  stage.Destination(L"   ");
  EXPECT_EQ(stage.Destination(), L"");
  EXPECT_EQ(element("ades"), "<ndd:ades/>");
  stage.AltDestination(L"  ");
  EXPECT_EQ(element("altn"), "");
}

TEST_F(IcaoStage, MakesSpacesInTheAircraftSingleAndAnEmptyOneNosend) {
  stage.Aircraft(L"  vh   abc  d ");
  EXPECT_EQ(stage.Aircraft(), L"VH ABC D");
  stage.Aircraft(L"");
  EXPECT_EQ(stage.Aircraft(), L"NOSEND");
  stage.Aircraft(L"vhabc");
  stage.Aircraft(L"   ");
  EXPECT_EQ(stage.Aircraft(), L"NOSEND");
}

TEST_F(IcaoStage, TakesTheFirstLetterOfKnownFlightRules) {
  for (const std::wstring rules : {L"I", L"V", L"Y", L"Z"}) {
    stage.FlightRules(rules);
    EXPECT_EQ(stage.FlightRules(), rules);
  }
  stage.FlightRules(L"y");
  EXPECT_EQ(stage.FlightRules(), L"Y");
  stage.FlightRules(L"  zulu ");
  EXPECT_EQ(stage.FlightRules(), L"Z");
  stage.FlightRules(L"IFR");
  EXPECT_EQ(stage.FlightRules(), L"I");
}

TEST_F(IcaoStage, KeepsItsFlightRulesWhenTheyAreUnknown) {
  stage.FlightRules(L"I");
  for (const wchar_t* rules : {L"Q", L"QV", L"S", L"1", L"\tV", L"-", L"\U0001F6E9", L"\u0130"}) {
    stage.FlightRules(rules);
    EXPECT_EQ(stage.FlightRules(), L"I");
  }
  stage.FlightRules(std::wstring(1, L'\0'));
  EXPECT_EQ(stage.FlightRules(), L"I");
}

TEST_F(IcaoStage, TakesEmptyFlightRulesTypeAndCategory) {
  for (const wchar_t* blank : {L"", L"   "}) {
    ICAOFlightNotifStage other;
    other.FlightRules(blank);
    other.TypeOfFlight(blank);
    other.WTC(blank);
    EXPECT_EQ(other.FlightRules(), L"");
    EXPECT_EQ(other.TypeOfFlight(), L"");
    EXPECT_EQ(other.WTC(), L"");
  }
  stage.FlightRules(L"");
  EXPECT_EQ(element("frul"), "<ndd:frul/>");
}

TEST_F(IcaoStage, TakesTheFirstLetterOfAKnownTypeOfFlight) {
  for (const std::wstring type : {L"S", L"N", L"G", L"M", L"X"}) {
    stage.TypeOfFlight(type);
    EXPECT_EQ(stage.TypeOfFlight(), type);
  }
  stage.TypeOfFlight(L" scheduled");
  EXPECT_EQ(stage.TypeOfFlight(), L"S");
  for (const wchar_t* type : {L"A", L"V", L"0"}) {
    stage.TypeOfFlight(type);
    EXPECT_EQ(stage.TypeOfFlight(), L"S");
  }
}

TEST_F(IcaoStage, TakesTheFirstLetterOfAKnownWakeTurbulenceCategory) {
  for (const std::wstring category : {L"L", L"M", L"H", L"J"}) {
    stage.WTC(category);
    EXPECT_EQ(stage.WTC(), category);
  }
  stage.WTC(L" medium");
  EXPECT_EQ(stage.WTC(), L"M");
  for (const wchar_t* category : {L"S", L"X", L"K"}) {
    stage.WTC(category);
    EXPECT_EQ(stage.WTC(), L"M");
  }
}

TEST_F(IcaoStage, KnowsNoOtherLettersOfRulesTypeAndCategory) {
  const auto lettersOf = [](auto& property) {
    std::wstring taken;
    for (const wchar_t letter : std::wstring_view(L"ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/- ")) {
      property(L"");
      property(std::wstring(1, letter));
      taken += property();
    }
    return taken;
  };
  EXPECT_EQ(lettersOf(stage.FlightRules), L"IVYZ");
  EXPECT_EQ(lettersOf(stage.TypeOfFlight), L"GMNSX");
  EXPECT_EQ(lettersOf(stage.WTC), L"HJLM");
}

TEST_F(IcaoStage, TakesAircraftTypesOfUpToFourCharacters) {
  stage.AircraftType(L"b738");
  EXPECT_EQ(stage.AircraftType(), L"B738");
  stage.AircraftType(L"B7378");
  EXPECT_EQ(stage.AircraftType(), L"B738");
  stage.AircraftType(L" b  738 ");
  EXPECT_EQ(stage.AircraftType(), L"B738");
  stage.AircraftType(L"  p  28 ");
  EXPECT_EQ(stage.AircraftType(), L"P 28");
  stage.AircraftType(L"");
  EXPECT_EQ(stage.AircraftType(), L"");
  EXPECT_EQ(element("atyp"), "<ndd:atyp/>");
}

TEST_F(IcaoStage, CountsTheUnitsOfAnAircraftTypeAlikeOnEveryPlatform) {
  stage.AircraftType(L"AB\U0001F6E9");
  EXPECT_EQ(stage.AircraftType(), L"AB\U0001F6E9");
  stage.AircraftType(L"ABC\U0001F6E9");
  EXPECT_EQ(stage.AircraftType(), L"AB\U0001F6E9");
}

TEST_F(IcaoStage, SendsTheDepartureAsGivenAndReadsItBackCleaned) {
  stage.Depart(L" ymml ");
  EXPECT_EQ(stage.Depart(), L"YMML");
  EXPECT_EQ(element("adep"), "<ndd:adep> ymml </ndd:adep>");
  stage.Depart(L"a  b");
  EXPECT_EQ(stage.Depart(), L"A  B");
  stage.Depart(L"");
  EXPECT_EQ(stage.Depart(), L"");
  EXPECT_EQ(element("adep"), "<ndd:adep/>");
}

TEST_F(IcaoStage, NeverTakesAnElapsedTimeBackToZero) {
  constexpr auto most = std::numeric_limits<std::int16_t>::max();
  stage.TEET(0);
  EXPECT_EQ(stage.TEET(), 0);
  stage.TEET(1);
  EXPECT_EQ(element("teet"), "<ndd:teet>PT00H01M</ndd:teet>");
  for (const std::int16_t refused :
       {std::int16_t{0}, std::int16_t{-1}, std::numeric_limits<std::int16_t>::min()}) {
    stage.TEET(refused);
    EXPECT_EQ(stage.TEET(), 1);
  }
  stage.TEET(600);
  EXPECT_EQ(element("teet"), "<ndd:teet>PT10H00M</ndd:teet>");
  stage.TEET(6000);
  EXPECT_EQ(element("teet"), "<ndd:teet>PT100H00M</ndd:teet>");
  stage.TEET(most);
  EXPECT_EQ(element("teet"), "<ndd:teet>PT546H07M</ndd:teet>");
}

TEST_F(IcaoStage, CountsOneToTenAircraft) {
  for (const std::int16_t number : {std::int16_t{2}, std::int16_t{10}}) {
    stage.NumAircraft(number);
    EXPECT_EQ(stage.NumAircraft(), number);
  }
  EXPECT_EQ(element("num-acft"), "<ndd:num-acft>10</ndd:num-acft>");
  for (const std::int16_t number : {std::int16_t{0}, std::int16_t{11}, std::int16_t{-3}}) {
    stage.NumAircraft(number);
    EXPECT_EQ(stage.NumAircraft(), 10);
  }
  stage.NumAircraft(1);
  EXPECT_EQ(stage.NumAircraft(), 1);
}

TEST_F(IcaoStage, WritesItsDepartureTimeAsItStands) {
  stage.ETD(at(1899, 12, 30));
  EXPECT_EQ(element("etd"), "<ndd:etd>1899-12-30T00:00:00Z</ndd:etd>");
  stage.ETD(at(2024, 2, 29, 23, 59, 58));
  EXPECT_EQ(element("etd"), "<ndd:etd>2024-02-29T23:59:58Z</ndd:etd>");
}

TEST_F(IcaoStage, SharesItsPartsWithTheHost) {
  const auto route = std::make_shared<ICAORoute>();
  stage.Route(route);
  route->Speed(L"n0450");
  EXPECT_EQ(element("route"),
            "<ndd:route><ndd:speed>N0450</ndd:speed><ndd:level>A080</ndd:level></ndd:route>");
  stage.Route(nullptr);
  EXPECT_EQ(element("route"), "<ndd:route/>");
}

TEST_F(IcaoStage, CannotBeSentWithCharactersThatXmlDoesNotAllow) {
  for (const std::wstring& text : {std::wstring(L"A\0B", 3), std::wstring(L"\x01"),
                                   std::wstring(1, static_cast<wchar_t>(0xDC00))}) {
    stage.Aircraft(text);
    EXPECT_EQ(test::faultOf([&] { (void)written(stage); }), fault::invalidCall);
  }
  stage.Aircraft(L"\U0001F6E9 <&>");
  EXPECT_EQ(element("acid"), "<ndd:acid>\xF0\x9F\x9B\xA9 &lt;&amp;&gt;</ndd:acid>");
}

template <class Part>
class FailingPart : public Part {
 public:
  void appendTo(const xml::Node&, std::wstring_view) const override {
    throw RuntimeFault(fault::typeMismatch);
  }
};

TEST_F(IcaoStage, ReportsAFailureAndKeepsWhatItWrote) {
  const std::wstring report =
      L"Error 13 (Type mismatch) in procedure IAppendable_appendTo of Class Module "
      L"ICAOFlightNotifStage";
  const std::string upToRoute = std::string(upToEquipment) + oldEquipment + fromDeparture;
  const test::FailureRecorder recorder;
  stage.SupplInfo(std::make_shared<FailingPart<ICAOSupplInfo>>());
  EXPECT_EQ(written(stage),
            part(upToRoute + "<ndd:route/><ndd:reg/><ndd:other-info/><ndd:suppl-info/>"));
  stage.SARTime(std::make_shared<FailingPart<SarTimeInfo>>());
  EXPECT_EQ(written(stage),
            part(upToRoute + "<ndd:route/><ndd:reg/><ndd:other-info/><ndd:sartimeinfo/>"));
  stage.OtherInfo(std::make_shared<FailingPart<ICAOOtherInfo>>());
  EXPECT_EQ(written(stage), part(upToRoute + "<ndd:route/><ndd:reg/><ndd:other-info/>"));
  stage.Route(std::make_shared<FailingPart<ICAORoute>>());
  EXPECT_EQ(written(stage), part(upToRoute + "<ndd:route/>"));
  EXPECT_EQ(recorder.reports(), test::Reports(4, report));
}

}  // namespace
}  // namespace ktpnaips
