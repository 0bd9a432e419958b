#include "tests/support/date_time.h"
#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/notification/filing.h>
#include <ktpnaips/notification/notification_directory.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace ktpnaips;
using ktpnaips::test::at;
using simulator::holds;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

std::shared_ptr<SARTimeFlightNotifStage> sarTimeStageToCanberra() {
  auto stage = std::make_shared<SARTimeFlightNotifStage>();
  stage->Depart(L" ysbk ");
  stage->Destination(L"yscb");
  stage->AltDestination(L"yswg");
  stage->ETD(at(2026, 11, 20, 22));
  stage->Add(L" psp ");
  stage->Add(L"  ");
  stage->Add(L"rivet");
  return stage;
}

std::shared_ptr<SARTimeFlightNotifStage> stageBack() {
  auto stage = std::make_shared<SARTimeFlightNotifStage>();
  stage->Depart(L"YSCB");
  stage->Destination(L"YSBK");
  stage->ETD(at(2026, 11, 21, 1));
  return stage;
}

/// A notification with every member set.
class SartimeExchange : public simulator::Exchange {
 protected:
  SartimeExchange() {
    SARTimeFlightNotif& notification = *request.Notification();
    notification.Aircraft(L" vhsar ");
    notification.AircraftType(L"c172");
    notification.Remarks(L"demo  flight");
    notification.Endurance(300);
    notification.POB(L"2 adults, TBAN");
    notification.Pilot()->Name(L"d  demo");
    notification.Pilot()->Phone(L"0400 000 000");
    notification.SarTimeInfo()->TBA(false);
    notification.SarTimeInfo()->Time(at(2026, 11, 21, 2, 30));
    notification.SarTimeInfo()->ATSUnit(L"censar");
    notification.SarTimeInfo()->EndPoint(L"arrival");
    notification.SarTimeInfo()->Location(L"ysbk");
    notification.setFlag(0, true);
    notification.Add(sarTimeStageToCanberra());
    notification.Add(stageBack());
  }

  SubmitSARTimeNotifRqs request;
};

INSTANTIATE_TEST_SUITE_P(Schemes, SartimeExchange, testing::Bool(), simulator::schemeName);

TEST_P(SartimeExchange, FilesANotificationAndReadsItsText) {
  request.GroupId(L"RESCUE");
  const auto filed = request.submit();
  ASSERT_TRUE(succeeded(filed));
  EXPECT_EQ(
      lastRequest(),
      requestOf("submit-sar-fn-rqs",
                "<flight-notif><acid>VHSAR</acid><atyp>C172</atyp>"
                "<stage number=\"1\"><adep>YSBK</adep><etd>2026-11-20T22:00:00Z</etd>"
                "<ades>YSCB</ades><alt>YSWG</alt>"
                "<waypoint>PSP</waypoint><waypoint>RIVET</waypoint></stage>"
                "<stage number=\"2\"><adep>YSCB</adep><etd>2026-11-21T01:00:00Z</etd>"
                "<ades>YSBK</ades></stage>"
                "<rmk>DEMO FLIGHT</rmk><sar><sartime>2026-11-21T02:30:00Z</sartime>"
                "<ats-unit>CENSAR</ats-unit><endpoint>ARRIVAL</endpoint><location>YSBK</location>"
                "</sar><end>PT05H00M</end><pob>2 TBAN</pob>"
                "<radios VHF=\"true\" UHF=\"false\" elt-406-MHz=\"true\"/>"
                "<pilot name=\"D DEMO\" phone=\"0400 000 000\"/></flight-notif>"
                "<group-id><group-name>RESCUE</group-name></group-id>"));
  EXPECT_EQ(filed->NotifText(),
            L"(SARTIME NOTIFICATION\n"
            L"-VHSAR C172\n"
            L"-YSBK PSP RIVET YSCB ETD 202200 ALTN YSWG\n"
            L"-YSCB YSBK ETD 210100\n"
            L"-RMK/DEMO FLIGHT\n"
            L"-SARTIME 210230 CENSAR ARRIVAL YSBK\n"
            L"-E/0500\n"
            L"-P/2 TBAN\n"
            L"-R/VHF ELT-406-MHZ\n"
            L"-C/D DEMO 0400 000 000)");
}

TEST_P(SartimeExchange, ListsAFiledNotificationByAircraftAndGroup) {
  ActiveFlightNotifDirRqs flights;
  flights.Aircraft(L"VHSAR");
  flights.GroupId(L"RESCUE");
  const auto before = flights.submit()->Count();
  request.GroupId(L"RESCUE");
  ASSERT_TRUE(succeeded(request.submit()));
  const auto list = flights.submit();
  ASSERT_TRUE(succeeded(list));
  ASSERT_EQ(list->Count(), before + 1);
  const auto flight = list->Item(list->Count());
  EXPECT_FALSE(flight->Id().empty());
  EXPECT_EQ(flight->OwnerId(), L"DEMO");
  EXPECT_EQ(flight->GroupId(), L"RESCUE");
  EXPECT_EQ(flight->DTG(), at(2026, 11, 20, 6));
  EXPECT_EQ(flight->Aircraft(), L"VHSAR");
  EXPECT_EQ(flight->Route(), L"YSBK PSP RIVET YSCB, YSCB YSBK");
}

TEST_P(SartimeExchange, FilesATimeToBeAdvised) {
  request.Notification()->SarTimeInfo(std::make_shared<SarTimeInfo>());
  const auto filed = request.submit();
  ASSERT_TRUE(succeeded(filed));
  EXPECT_NE(lastRequest().find("<ndd:sar><ndd:sartimetban>TBA</ndd:sartimetban><ndd:ats-unit/>"
                               "<ndd:location/></ndd:sar>"),
            std::string::npos);
  EXPECT_EQ(lastRequest().find("group-id"), std::string::npos);
  EXPECT_TRUE(holds(filed->NotifText(), L"\n-SARTIME TBA\n"));
}

TEST_P(SartimeExchange, HasNoTextWhenItIsRefused) {
  NAIPSConfig().Password(L"wrong");
  const auto filed = request.submit();
  EXPECT_TRUE(refused(filed, L"Invalid user name or password"));
  EXPECT_EQ(filed->NotifText(), L"");
}

}  // namespace
