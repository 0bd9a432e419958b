#include "tests/support/date_time.h"
#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/notification/filing.h>
#include <ktpnaips/notification/notification_directory.h>
#include <ktpnaips/spfib/spfib_directory.h>
#include <ktpnaips/spfib/spfib_requests.h>
#include <ktpnaips/spfib/wind_temp_profile.h>

#include <gtest/gtest.h>

#include <memory>
#include <string_view>

using namespace ktpnaips;
using ktpnaips::test::at;
using simulator::refused;
using simulator::succeeded;

namespace {

constexpr DateTime departure = at(2026, 11, 20, 22);
constexpr DateTime past = at(2026, 11, 20, 5, 59);

constexpr std::wstring_view foreignGroup = L"You are not in the group OTHERS";
constexpr std::wstring_view noStages = L"The flight has no stages";
constexpr std::wstring_view noAircraft = L"The aircraft identification is missing";
constexpr std::wstring_view inThePast =
    L"The estimated time of departure is in the past: 2026-11-20T05:59:00Z";

/// Flights that the service will not have: each test spoils one that it takes.
class Refusal : public simulator::Exchange {};

INSTANTIATE_TEST_SUITE_P(Schemes, Refusal, testing::Bool(), simulator::schemeName);

class BulletinRefusal : public Refusal {
 protected:
  BulletinRefusal() {
    stage->Departing(L"YSSY");
    stage->Destination(L"YMML");
    stage->ETD(departure);
    stage->Route(std::make_shared<SPFIBRoute>());
    request.SPFIBSpec(std::make_shared<SPFIBSpec>());
    request.SPFIBSpec()->Aircraft(L"VHABC");
    request.SPFIBSpec()->addStage(stage);
  }

  /// The request as it stands is refused, and brings nothing.
  void expectRefused(std::wstring_view reason) {
    const auto bulletin = request.submit();
    EXPECT_TRUE(refused(bulletin, reason));
    EXPECT_EQ(bulletin->Content(), L"");
    EXPECT_EQ(bulletin->Count(), 0);
  }

  std::shared_ptr<SPFIBStageSpec> stage = std::make_shared<SPFIBStageSpec>();
  SPFIBRqs request;
};

INSTANTIATE_TEST_SUITE_P(Schemes, BulletinRefusal, testing::Bool(), simulator::schemeName);

TEST_P(BulletinRefusal, IsForAGroupThatTheAccountIsNotIn) {
  request.GroupId(L"OTHERS");
  expectRefused(foreignGroup);
  request.GroupId(L"club");
  EXPECT_TRUE(succeeded(request.submit()));
}

TEST_P(BulletinRefusal, IsForAPlaceThatIsNotKnown) {
  stage->Departing(L"QQQQ");
  expectRefused(L"Unknown place: QQQQ");
  stage->Departing(L"YSSY");
  stage->AltDestination(L"QQQR");
  expectRefused(L"Unknown place: QQQR");
  stage->AltDestination(L"YMAV");
  EXPECT_TRUE(succeeded(request.submit()));
}

TEST_P(BulletinRefusal, IsForARouteThatIsNotKnown) {
  stage->Route()->RouteCode(L"Z9");
  expectRefused(L"Unknown route: YSSY YMML Z9");
}

TEST_P(BulletinRefusal, IsForADepartureInThePast) {
  stage->ETD(past);
  expectRefused(inThePast);
}

TEST_P(BulletinRefusal, IsForAFlightWithoutAircraftOrStages) {
  request.SPFIBSpec()->Aircraft(L"NOSEND");
  expectRefused(noAircraft);
  request.SPFIBSpec(std::make_shared<SPFIBSpec>());
  expectRefused(noStages);
}

TEST_P(BulletinRefusal, IsForAnUpdateOfMoreStagesThanTheBulletinHas) {
  UpdateSPFIBRqs update;
  update.SPFIBNumber(L"1001");
  update.StageCount(2);
  EXPECT_TRUE(refused(update.submit(), L"Bulletin 1001 has fewer stages"));
}

TEST_P(Refusal, IsForDirectoriesOfAGroupThatTheAccountIsNotIn) {
  ActiveSPFIBDirectoryRqs bulletins;
  bulletins.GroupId(L"OTHERS");
  const auto listed = bulletins.submit();
  EXPECT_TRUE(refused(listed, foreignGroup));
  EXPECT_EQ(listed->Count(), 0);
  ActiveFlightNotifDirRqs flights;
  flights.GroupId(L"OTHERS");
  const auto filed = flights.submit();
  EXPECT_TRUE(refused(filed, foreignGroup));
  EXPECT_EQ(filed->Count(), 0);
}

class FlightPlanRefusal : public Refusal {
 protected:
  FlightPlanRefusal() {
    stage->Aircraft(L"VHREF");
    stage->Depart(L"YSSY");
    stage->Destination(L"YMML");
    stage->TEET(90);
    stage->ETD(departure);
    request.Notification()->Add(stage);
  }

  void expectRefused(std::wstring_view reason) {
    const auto filed = request.submit();
    EXPECT_TRUE(refused(filed, reason));
    EXPECT_EQ(filed->Count(), 0);
    ActiveFlightNotifDirRqs flights;
    flights.Aircraft(L"VHREF");
    EXPECT_EQ(flights.submit()->Count(), 0);
  }

  std::shared_ptr<ICAOFlightNotifStage> stage = std::make_shared<ICAOFlightNotifStage>();
  SubmitICAOFlightNotifRqs request;
};

INSTANTIATE_TEST_SUITE_P(Schemes, FlightPlanRefusal, testing::Bool(), simulator::schemeName);

TEST_P(FlightPlanRefusal, IsForAGroupThatTheAccountIsNotIn) {
  request.GroupId(L"OTHERS");
  expectRefused(foreignGroup);
}

TEST_P(FlightPlanRefusal, IsForAnAerodromeThatIsNotKnown) {
  stage->Depart(L"QQQQ");
  expectRefused(L"Unknown aerodrome: QQQQ");
  stage->Depart(L"YSSY");
  stage->Destination(L"WOL");
  expectRefused(L"Unknown aerodrome: WOL");
  stage->Destination(L"YMML");
  stage->AltDestination(L"QQQR");
  expectRefused(L"Unknown aerodrome: QQQR");
}

TEST_P(FlightPlanRefusal, IsForADepartureInThePast) {
  stage->ETD(past);
  expectRefused(inThePast);
}

TEST_P(FlightPlanRefusal, IsForAFlightWithoutAircraftOrStages) {
  stage->Aircraft(L"");
  expectRefused(noAircraft);
  request.Notification(std::make_shared<ICAOFlightNotif>());
  expectRefused(noStages);
  request.Notification(nullptr);
  expectRefused(noStages);
}

class SartimeRefusal : public Refusal {
 protected:
  SartimeRefusal() {
    stage->Depart(L"YSBK");
    stage->Destination(L"YSCB");
    stage->ETD(departure);
    request.Notification()->Aircraft(L"VHREF");
    request.Notification()->Add(stage);
  }

  void expectRefused(std::wstring_view reason) {
    const auto filed = request.submit();
    EXPECT_TRUE(refused(filed, reason));
    EXPECT_EQ(filed->NotifText(), L"");
    ActiveFlightNotifDirRqs flights;
    flights.Aircraft(L"VHREF");
    EXPECT_EQ(flights.submit()->Count(), 0);
  }

  std::shared_ptr<SARTimeFlightNotifStage> stage = std::make_shared<SARTimeFlightNotifStage>();
  SubmitSARTimeNotifRqs request;
};

INSTANTIATE_TEST_SUITE_P(Schemes, SartimeRefusal, testing::Bool(), simulator::schemeName);

TEST_P(SartimeRefusal, IsForAGroupThatTheAccountIsNotIn) {
  request.GroupId(L"OTHERS");
  expectRefused(foreignGroup);
}

TEST_P(SartimeRefusal, IsForAnAerodromeThatIsNotKnown) {
  stage->Depart(L"QQQQ");
  expectRefused(L"Unknown aerodrome: QQQQ");
  stage->Depart(L"YSBK");
  stage->AltDestination(L"QQQR");
  expectRefused(L"Unknown aerodrome: QQQR");
}

TEST_P(SartimeRefusal, IsForADepartureInThePast) {
  stage->ETD(past);
  expectRefused(inThePast);
}

TEST_P(SartimeRefusal, IsForAFlightWithoutAircraftOrStages) {
  request.Notification()->Aircraft(L"");
  expectRefused(noAircraft);
  request.Notification(std::make_shared<SARTimeFlightNotif>());
  expectRefused(noStages);
}

class WindRefusal : public Refusal {
 protected:
  WindRefusal() {
    stage->Depart(L"YSSY");
    stage->Destination(L"YSCB");
    stage->ETD(departure);
    request.addStage(stage);
  }

  void expectRefused(std::wstring_view reason) {
    const auto profile = request.submit();
    EXPECT_TRUE(refused(profile, reason));
    EXPECT_EQ(profile->Content(), L"");
  }

  std::shared_ptr<WindTempStage> stage = std::make_shared<WindTempStage>();
  WindTempProfileRqs request;
};

INSTANTIATE_TEST_SUITE_P(Schemes, WindRefusal, testing::Bool(), simulator::schemeName);

TEST_P(WindRefusal, IsForAPlaceThatIsNotKnown) {
  stage->Destination(L"QQQQ");
  expectRefused(L"Unknown place: QQQQ");
}

TEST_P(WindRefusal, IsForADepartureInThePast) {
  stage->ETD(past);
  expectRefused(inThePast);
}

TEST_P(WindRefusal, IsForAFlightWithoutStages) {
  EXPECT_TRUE(refused(WindTempProfileRqs().submit(), noStages));
}

}  // namespace
