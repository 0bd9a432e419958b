#include <ktpnaips/notification/sartime_notification.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tests/support/date_time.h"
#include "tests/support/failing_allocation.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/fault.h"
#include "tests/support/local_clock.h"
#include "tests/support/parts.h"

namespace ktpnaips {
namespace {

using test::at;
using test::part;
using test::written;

const char* const sar =
    "<ndd:sar><ndd:sartimetban>TBA</ndd:sartimetban><ndd:ats-unit/><ndd:location/></ndd:sar>";
const char* const fromRadios =
    "<ndd:radios VHF=\"false\" UHF=\"false\" elt-406-MHz=\"true\"/>"
    "<ndd:pilot name=\"\" phone=\"\"/>";
const std::string nosend = "<ndd:acid>NOSEND</ndd:acid><ndd:atyp/>";

std::shared_ptr<SARTimeFlightNotifStage> sarTimeStageFrom(std::wstring_view place) {
  auto stage = std::make_shared<SARTimeFlightNotifStage>();
  stage->Depart(place);
  stage->ETD(at(2026, 3, 7, 21, 0, 9));
  return stage;
}

TEST(SarTimeNotification, HasItsDefaults) {
  const SARTimeFlightNotif notification;
  EXPECT_EQ(notification.Aircraft(), L"NOSEND");
  EXPECT_EQ(notification.AircraftType(), L"");
  EXPECT_EQ(notification.Remarks(), L"");
  EXPECT_EQ(notification.Endurance(), 0);
  EXPECT_EQ(notification.POB(), L"");
  ASSERT_NE(notification.Pilot(), nullptr);
  EXPECT_EQ(notification.Pilot()->Name(), L"");
  ASSERT_NE(notification.SarTimeInfo(), nullptr);
  EXPECT_TRUE(notification.SarTimeInfo()->TBA());
  for (int bit = 0; bit <= 30; ++bit) EXPECT_EQ(notification.flag(bit), bit == 2);
}

TEST(SarTimeNotification, WritesItsDefaults) {
  EXPECT_EQ(written(SARTimeFlightNotif()), part(nosend + sar + "<ndd:pob/>" + fromRadios));
}

TEST(SarTimeNotification, WritesEverythingInItsOrder) {
  SARTimeFlightNotif notification;
  notification.setFlag(0, true);
  notification.Pilot()->Name(L"jo");
  notification.Pilot()->Phone(L"123");
  notification.POB(L"4 pax");
  notification.Endurance(240);
  notification.SarTimeInfo()->TBA(false);
  notification.SarTimeInfo()->Time(at(2026, 3, 8, 3));
  notification.SarTimeInfo()->ATSUnit(L"censar");
  notification.SarTimeInfo()->EndPoint(L"arr");
  notification.SarTimeInfo()->Location(L"ycwr");
  notification.Remarks(L" flying   low ");
  notification.Add(sarTimeStageFrom(L"ysbk"));
  notification.AircraftType(L" c  172 ");
  notification.Aircraft(L" vh  def ");
  EXPECT_EQ(written(notification),
            part("<ndd:acid>VH DEF</ndd:acid><ndd:atyp>C 172</ndd:atyp>"
                 "<ndd:stage number=\"1\"><ndd:adep>YSBK</ndd:adep>"
                 "<ndd:etd>2026-03-07T21:00:09Z</ndd:etd><ndd:ades>UNKNOWN</ndd:ades></ndd:stage>"
                 "<ndd:rmk>FLYING LOW</ndd:rmk>"
                 "<ndd:sar><ndd:sartime>2026-03-08T03:00:00Z</ndd:sartime>"
                 "<ndd:ats-unit>CENSAR</ndd:ats-unit><ndd:endpoint>ARR</ndd:endpoint>"
                 "<ndd:location>YCWR</ndd:location></ndd:sar>"
                 "<ndd:end>PT04H00M</ndd:end><ndd:pob>4</ndd:pob>"
                 "<ndd:radios VHF=\"true\" UHF=\"false\" elt-406-MHz=\"true\"/>"
                 "<ndd:pilot name=\"JO\" phone=\"123\"/>"));
}

TEST(SarTimeNotification, CutsNoText) {
  SARTimeFlightNotif notification;
  const std::wstring text(1000, L'a');
  notification.Aircraft(text);
  notification.AircraftType(text);
  notification.Remarks(text);
  const std::string whole(1000, 'A');
  EXPECT_EQ(written(notification),
            part("<ndd:acid>" + whole + "</ndd:acid><ndd:atyp>" + whole + "</ndd:atyp><ndd:rmk>" +
                 whole + "</ndd:rmk>" + sar + "<ndd:pob/>" + fromRadios));
}

TEST(SarTimeNotification, HasPartsOfItsOwnAndSharesTheHosts) {
  SARTimeFlightNotif notification;
  const SARTimeFlightNotif other;
  EXPECT_NE(notification.Pilot(), other.Pilot());
  EXPECT_NE(notification.SarTimeInfo(), other.SarTimeInfo());
  notification.Pilot(other.Pilot());
  notification.SarTimeInfo(other.SarTimeInfo());
  EXPECT_EQ(notification.Pilot(), other.Pilot());
  EXPECT_EQ(notification.SarTimeInfo(), other.SarTimeInfo());
}

TEST(SarTimeNotification, KeepsAnEmptyAircraftEmpty) {
  SARTimeFlightNotif notification;
  notification.Aircraft(L"   ");
  EXPECT_EQ(notification.Aircraft(), L"");
  EXPECT_EQ(written(notification),
            part("<ndd:acid/><ndd:atyp/>" + std::string(sar) + "<ndd:pob/>" + fromRadios));
}

TEST(SarTimeNotification, TakesAnEnduranceFromZero) {
  SARTimeFlightNotif notification;
  notification.Endurance(1);
  notification.Endurance(-1);
  EXPECT_EQ(notification.Endurance(), 1);
  EXPECT_EQ(written(notification),
            part(nosend + sar + "<ndd:end>PT00H01M</ndd:end><ndd:pob/>" + fromRadios));
  notification.Endurance(0);
  EXPECT_EQ(written(notification), part(nosend + sar + "<ndd:pob/>" + fromRadios));
}

TEST(SarTimeNotification, KeepsNumbersAndTheWordsToBeAdvisedOfThePersonsOnBoard) {
  SARTimeFlightNotif notification;
  const auto kept = [&](std::wstring_view text) {
    notification.POB(text);
    return notification.POB();
  };
  EXPECT_EQ(kept(L"4 pax"), L"4");
  EXPECT_EQ(kept(L"tba"), L"TBA");
  EXPECT_EQ(kept(L"2+TBAN"), L"2 TBAN");
  EXPECT_EQ(kept(L"about 12"), L"12");
  EXPECT_EQ(kept(L" tbantba "), L"TBAN TBA");
  EXPECT_EQ(kept(L"007"), L"007");
  EXPECT_EQ(kept(L"1,234.5-"), L"1 234 5");
  EXPECT_EQ(kept(L"2 or 3  (TB A)"), L"2 3");
  EXPECT_EQ(kept(L"2tba3"), L"2 TBA 3");
  EXPECT_EQ(kept(L"nobody"), L"");
  EXPECT_EQ(kept(L""), L"");
  EXPECT_EQ(kept(std::wstring_view(L"1\0002", 3)), L"1 2");
  EXPECT_EQ(kept(L"\u0661\uff12\U0001F6E9"), L"");
  EXPECT_EQ(kept(L"1" + std::wstring(1, static_cast<wchar_t>(0xD800)) + L"2"), L"1 2");
  EXPECT_EQ(kept(std::wstring(100'000, L'T')), L"");
  EXPECT_EQ(kept(std::wstring(100'000, L'9')), std::wstring(100'000, L'9'));
}

TEST(SarTimeNotification, StoresAnEmptyTextForPersonsOnBoardWithoutAny) {
  SARTimeFlightNotif notification;
  notification.POB(L"4");
  notification.POB(L"none");
  EXPECT_EQ(notification.POB(), L"");
  EXPECT_EQ(written(notification), part(nosend + sar + "<ndd:pob/>" + fromRadios));
}

TEST(SarTimeNotification, WritesEachRadioFromItsBit) {
  const auto with = [](std::int32_t bit) {
    SARTimeFlightNotif notification;
    notification.setFlag(2, false);
    notification.setFlag(bit, true);
    return written(notification);
  };
  const auto withRadios = [](const std::string& attributes) {
    return part(nosend + sar + "<ndd:pob/><ndd:radios " + attributes +
                "/><ndd:pilot name=\"\" phone=\"\"/>");
  };
  EXPECT_EQ(with(0), withRadios("VHF=\"true\" UHF=\"false\" elt-406-MHz=\"false\""));
  EXPECT_EQ(with(1), withRadios("VHF=\"false\" UHF=\"true\" elt-406-MHz=\"false\""));
  EXPECT_EQ(with(2), withRadios("VHF=\"false\" UHF=\"false\" elt-406-MHz=\"true\""));
  for (std::int32_t bit = 3; bit <= 30; ++bit) {
    EXPECT_EQ(with(bit), withRadios("VHF=\"false\" UHF=\"false\" elt-406-MHz=\"false\""));
  }
  EXPECT_EQ(test::faultOf([&] { with(31); }), fault::overflow);
}

TEST(SarTimeNotification, NumbersItsStagesWithoutALimitAndIgnoresNoStage) {
  SARTimeFlightNotif notification;
  std::string expected = nosend;
  const auto stage = sarTimeStageFrom(L"ysbk");
  notification.Add(nullptr);
  for (int number = 1; number <= 120; ++number) {
    notification.Add(stage);
    expected += "<ndd:stage number=\"" + std::to_string(number) +
                "\"><ndd:adep>YSBK</ndd:adep><ndd:etd>2026-03-07T21:00:09Z</ndd:etd>"
                "<ndd:ades>UNKNOWN</ndd:ades></ndd:stage>";
  }
  EXPECT_EQ(written(notification), part(expected + sar + "<ndd:pob/>" + fromRadios));
}

TEST(SarTimeNotification, LeavesTheElementsOfMissingPartsEmpty) {
  SARTimeFlightNotif notification;
  notification.Pilot(nullptr);
  notification.SarTimeInfo(nullptr);
  EXPECT_EQ(written(notification),
            part(nosend + "<ndd:sar/><ndd:pob/><ndd:radios VHF=\"false\" UHF=\"false\" "
                          "elt-406-MHz=\"true\"/><ndd:pilot/>"));
}

class FailingSarTimeStage : public SARTimeFlightNotifStage {
 public:
  void appendTo(const xml::Node&, std::wstring_view) const override {
    throw RuntimeFault(fault::typeMismatch);
  }
};

TEST(SarTimeNotification, ReportsAFailureUnderAnotherClassNameAndKeepsWhatItWrote) {
  SARTimeFlightNotif notification;
  notification.Add(std::make_shared<FailingSarTimeStage>());
  const test::FailureRecorder recorder;
  EXPECT_EQ(written(notification), part(nosend + "<ndd:stage number=\"1\"/>"));
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 13 (Type mismatch) in procedure IAppendable_appendTo of Class "
                          L"Module SARTimeNotification"});
}

TEST(SarTimeNotification, ReportsAFailureWithThePersonsOnBoard) {
  const auto outcomes = test::outcomesOfFailures([] {
    return [notification = std::make_shared<SARTimeFlightNotif>()] {
      notification->POB(L"about 120 persons, the rest TBAN");
    };
  });
  EXPECT_TRUE(outcomes.contains(test::outOfMemory(L"sanitisePOB", L"SARTimeFlightNotif")));
}

TEST(SarTimeStage, HasItsDefaults) {
  const DateTime before = test::localNow();
  SARTimeFlightNotifStage stage;
  EXPECT_GE(stage.ETD(), before);
  EXPECT_LE(stage.ETD(), test::localNow());
  EXPECT_EQ(stage.AltDestination(), L"");
  EXPECT_EQ(stage.Depart(), L"UNKNOWN");
  EXPECT_EQ(stage.Destination(), L"UNKNOWN");
  stage.ETD(at(2026, 3, 7, 21));
  EXPECT_EQ(written(stage), part("<ndd:adep>UNKNOWN</ndd:adep>"
                                 "<ndd:etd>2026-03-07T21:00:00Z</ndd:etd>"
                                 "<ndd:ades>UNKNOWN</ndd:ades>"));
}

TEST(SarTimeStage, SendsTheTimeOfItsCreationAsItStands) {
  const SARTimeFlightNotifStage fresh;
  SARTimeFlightNotifStage same;
  same.ETD(fresh.ETD());
  EXPECT_EQ(written(fresh), written(same));
}

TEST(SarTimeStage, WritesEverythingInItsOrder) {
  SARTimeFlightNotifStage stage;
  stage.Add(L" parra   matta ");
  stage.Add(L"mt victoria");
  stage.Add(L"mt victoria");
  stage.AltDestination(L" yb  th ");
  stage.ETD(at(2026, 3, 7, 21));
  stage.Destination(L" yc  wr ");
  stage.Depart(L" ys  bk ");
  EXPECT_EQ(stage.Depart(), L"YS BK");
  EXPECT_EQ(stage.Destination(), L"YC WR");
  EXPECT_EQ(stage.AltDestination(), L"YB TH");
  EXPECT_EQ(written(stage), part("<ndd:adep>YS BK</ndd:adep><ndd:etd>2026-03-07T21:00:00Z</ndd:etd>"
                                 "<ndd:ades>YC WR</ndd:ades><ndd:alt>YB TH</ndd:alt>"
                                 "<ndd:waypoint>PARRA MATTA</ndd:waypoint>"
                                 "<ndd:waypoint>MT VICTORIA</ndd:waypoint>"
                                 "<ndd:waypoint>MT VICTORIA</ndd:waypoint>"));
}

TEST(SarTimeStage, StoresEmptyPlaces) {
  SARTimeFlightNotifStage stage;
  stage.Depart(L"");
  stage.Destination(L"  ");
  stage.AltDestination(L"  ");
  stage.ETD(at(2026, 3, 7, 21));
  EXPECT_EQ(written(stage), part("<ndd:adep/><ndd:etd>2026-03-07T21:00:00Z</ndd:etd><ndd:ades/>"));
}

TEST(SarTimeStage, IgnoresBlankLocationsAndHasNoLimitOfOthers) {
  SARTimeFlightNotifStage stage;
  stage.ETD(at(2026, 3, 7, 21));
  stage.Add(L"");
  stage.Add(L"   ");
  std::string expected =
      "<ndd:adep>UNKNOWN</ndd:adep><ndd:etd>2026-03-07T21:00:00Z</ndd:etd>"
      "<ndd:ades>UNKNOWN</ndd:ades>";
  for (int number = 1; number <= 200; ++number) {
    stage.Add(std::to_wstring(number));
    expected += "<ndd:waypoint>" + std::to_string(number) + "</ndd:waypoint>";
  }
  EXPECT_EQ(written(stage), part(expected));
}

TEST(SarTimeStage, ReportsAFailureUnderAnotherClassName) {
  EXPECT_EQ(
      test::outcomesOfAppending(*sarTimeStageFrom(L"ysbk")),
      test::Outcomes{test::outOfMemory(L"IAppendable_appendTo", L"SARTimeNotificationStage")});
}

}  // namespace
}  // namespace ktpnaips
