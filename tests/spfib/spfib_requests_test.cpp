#include <ktpnaips/core/request_document.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/spfib/spfib_requests.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include "tests/support/date_time.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/fault.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using test::at;
using test::missingObject;
using test::outOfMemory;

const char* const emptySpec =
    "<ndd:spfib><ndd:domestic>false</ndd:domestic><ndd:acid>NOSEND</ndd:acid>"
    "<ndd:tas>N0100</ndd:tas><ndd:exp-wind>false</ndd:exp-wind>"
    "<ndd:intl-series-notam>false</ndd:intl-series-notam>"
    "<ndd:full-text-notam>false</ndd:full-text-notam><ndd:charts>false</ndd:charts>"
    "<ndd:mid-sigwx-gpwt>false</ndd:mid-sigwx-gpwt><ndd:variant>LO</ndd:variant></ndd:spfib>";

/// Numbers that a property refuses which takes them up to `Beyond` less one.
template <std::int16_t Beyond>
constexpr std::array<std::int16_t, 4> outside{Beyond, -1, std::numeric_limits<std::int16_t>::max(),
                                              std::numeric_limits<std::int16_t>::min()};

class BulletinRequest : public testing::Test {
 protected:
  BulletinRequest() { request.SPFIBSpec(std::make_shared<SPFIBSpec>()); }

  SPFIBRqs request;

 private:
  test::FreshSettings settings_;
};

std::string bulletin(const std::string& content) {
  return test::requestWith("spfib-rqs", content);
}

TEST_F(BulletinRequest, HasItsDefaults) {
  const SPFIBRqs fresh;
  EXPECT_EQ(fresh.abstractReq().ElementName(), L"spfib-rqs");
  EXPECT_EQ(fresh.briefingReq().Duration(), 0);
  EXPECT_EQ(fresh.Duration(), 0);
  EXPECT_EQ(fresh.SPFIBSpec(), nullptr);
  EXPECT_EQ(fresh.GroupId(), L"");
  for (int bit = 0; bit <= 30; ++bit) EXPECT_FALSE(fresh.flag(bit));
  EXPECT_EQ(requestDocument(request), bulletin(emptySpec));
}

TEST_F(BulletinRequest, WritesEverythingInItsOrder) {
  request.GroupId(L" Aero  Club ");
  request.Duration(6);
  request.briefingReq().From(at(2026, 11, 16, 2));
  request.briefingReq().Till(at(2026, 11, 16, 8));
  EXPECT_EQ(requestDocument(request),
            bulletin("<ndd:period><ndd:from>2026-11-16T02:00:00Z</ndd:from>"
                     "<ndd:till>2026-11-16T08:00:00Z</ndd:till></ndd:period>"
                     "<ndd:duration>PT6H</ndd:duration>"
                     "<ndd:group-id><ndd:group-name> Aero  Club </ndd:group-name></ndd:group-id>" +
                     std::string(emptySpec)));
}

TEST_F(BulletinRequest, WritesTheDurationOfItsPeriodBesideItsOwn) {
  request.briefingReq().Duration(12);
  request.Duration(30);
  EXPECT_EQ(requestDocument(request),
            bulletin("<ndd:duration>PT12H</ndd:duration><ndd:duration>PT30H</ndd:duration>" +
                     std::string(emptySpec)));
}

TEST_F(BulletinRequest, TakesADurationOfUpTo30Hours) {
  request.Duration(30);
  for (const std::int16_t refused : outside<31>) {
    request.Duration(refused);
    EXPECT_EQ(request.Duration(), 30);
  }
  request.Duration(1);
  EXPECT_EQ(requestDocument(request),
            bulletin("<ndd:duration>PT1H</ndd:duration>" + std::string(emptySpec)));
  request.Duration(0);
  EXPECT_EQ(request.Duration(), 0);
  EXPECT_EQ(requestDocument(request), bulletin(emptySpec));
}

TEST_F(BulletinRequest, KeepsItsFlagsOutOfTheDocument) {
  for (int bit = 0; bit <= 30; ++bit) request.setFlag(bit, true);
  EXPECT_TRUE(request.flag(30));
  EXPECT_FALSE(request.SPFIBSpec()->flag(0));
  EXPECT_EQ(requestDocument(request), bulletin(emptySpec));
  EXPECT_EQ(test::faultOf([&] { request.setFlag(31, true); }), fault::overflow);
}

TEST_F(BulletinRequest, EndsInAnEmptyElementWithoutAFlight) {
  request.SPFIBSpec(nullptr);
  const test::FailureRecorder recorder;
  EXPECT_EQ(requestDocument(request), bulletin("<ndd:spfib/>"));
  EXPECT_EQ(recorder.reports(), test::Reports{missingObject(L"SPFIBRequest")});
}

TEST_F(BulletinRequest, ReportsItsFailures) {
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{missingObject(L"SPFIBRequest")});
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{outOfMemory(L"submit", L"SPFIBRequest")});
}

class BulletinUpdate : public testing::Test {
 protected:
  UpdateSPFIBRqs request;

 private:
  test::FreshSettings settings_;
};

std::string update(const std::string& content) {
  return test::requestWith("update-spfib-rqs", content);
}

const std::string stageIncluded = "<ndd:stage include=\"true\"/>";

TEST_F(BulletinUpdate, HasItsDefaults) {
  EXPECT_EQ(request.abstractReq().ElementName(), L"update-spfib-rqs");
  EXPECT_EQ(request.Duration(), 0);
  EXPECT_EQ(request.SPFIBNumber(), L"");
  EXPECT_EQ(request.StageCount(), 1);
  EXPECT_EQ(requestDocument(request), update("<ndd:number/>" + stageIncluded));
}

TEST_F(BulletinUpdate, WritesEverythingInItsOrder) {
  request.StageCount(3);
  request.SPFIBNumber(L" a 4711 ");
  request.Duration(6);
  request.briefingReq().Duration(12);
  EXPECT_EQ(request.SPFIBNumber(), L" a 4711 ");
  EXPECT_EQ(requestDocument(request),
            update("<ndd:duration>PT12H</ndd:duration><ndd:duration>6</ndd:duration>"
                   "<ndd:number> a 4711 </ndd:number>" +
                   stageIncluded + stageIncluded + stageIncluded));
}

TEST_F(BulletinUpdate, TakesADurationOfUpTo30Hours) {
  request.Duration(30);
  for (const std::int16_t refused : outside<31>) {
    request.Duration(refused);
    EXPECT_EQ(request.Duration(), 30);
  }
  EXPECT_EQ(requestDocument(request),
            update("<ndd:duration>30</ndd:duration><ndd:number/>" + stageIncluded));
  request.Duration(0);
  EXPECT_EQ(requestDocument(request), update("<ndd:number/>" + stageIncluded));
}

TEST_F(BulletinUpdate, IncludesOneToTenStages) {
  request.StageCount(10);
  request.StageCount(0);
  EXPECT_EQ(request.StageCount(), 10);
  for (const std::int16_t refused : outside<11>) {
    request.StageCount(refused);
    EXPECT_EQ(request.StageCount(), 10);
  }
  std::string stages;
  for (int number = 1; number <= 10; ++number) stages += stageIncluded;
  EXPECT_EQ(requestDocument(request), update("<ndd:number/>" + stages));
}

TEST_F(BulletinUpdate, ReportsAFailingSubmitUnderTheNameOfAnotherRequest) {
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{missingObject(L"UpdateSPFIBRqs")});
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{outOfMemory(L"submit", L"MetBriefRequest")});
}

TEST(StoredBulletinRequest, CarriesTheNumberAsGiven) {
  const test::FreshSettings settings;
  GetSPFIBRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"get-spfib-rqs");
  EXPECT_EQ(request.Number(), L"");
  EXPECT_EQ(requestDocument(request), test::requestWith("get-spfib-rqs", "<ndd:number/>"));
  request.Number(L" a 4711 ");
  EXPECT_EQ(request.Number(), L" a 4711 ");
  EXPECT_EQ(requestDocument(request),
            test::requestWith("get-spfib-rqs", "<ndd:number> a 4711 </ndd:number>"));
}

TEST(StoredBulletinRequest, HasAHandlerInSubmitOnly) {
  const test::FreshSettings settings;
  const GetSPFIBRqs request;
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{outOfMemory(L"submit", L"GetSPFIBRequest")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

std::string stage(const std::string& adep, const std::string& etd, const std::string& ades) {
  return "<n:stage><n:adep><n:loc>" + adep + "</n:loc></n:adep><n:etd>" + etd + "</n:etd><n:ades>" +
         ades + "</n:ades><n:level>F350</n:level></n:stage>";
}

std::string stored(const std::string& content) {
  return test::success("<n:duration>PT6H</n:duration><n:spfib>" + content + "</n:spfib>");
}

const test::Reports missingElement{
    L"Error 91 (Object variable or With block variable not set) in procedure extractData of Class "
    L"Module GetSPFIBRsp"};

TEST(StoredBulletin, ReadsAsFailedAndEmptyUntilItIsLoaded) {
  const GetSPFIBRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.SPFIBSpec(), nullptr);
  EXPECT_EQ(response.Duration(), L"");
}

TEST(StoredBulletin, HasItsAirspeedAndStages) {
  GetSPFIBRsp response;
  test::load(response, stored("<n:tas>N0450</n:tas><n:acid>VHABC</n:acid>" +
                              stage("yssy", "2026-11-16T22:00:05Z", "ymml") +
                              stage(" sy045025 ", "2026-11-17", "<n:loc>yp</n:loc>ad")));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Duration(), L"PT6H");
  ASSERT_NE(response.SPFIBSpec(), nullptr);
  const SPFIBSpec& spec = *response.SPFIBSpec();
  EXPECT_EQ(spec.TAS(), L"N0450");
  EXPECT_EQ(spec.Aircraft(), L"NOSEND");
  ASSERT_EQ(spec.Count(), 2);
  EXPECT_EQ(spec.Item(1)->Departing(), L"YSSY");
  EXPECT_EQ(spec.Item(1)->Destination(), L"YMML");
  EXPECT_EQ(spec.Item(1)->ETD(), at(2026, 11, 16, 22, 0, 5));
  EXPECT_EQ(spec.Item(1)->Level(), L"F180");
  EXPECT_EQ(spec.Item(1)->Route(), nullptr);
  EXPECT_EQ(spec.Item(2)->Departing(), L"SY045025");
  EXPECT_EQ(spec.Item(2)->Destination(), L"YPAD");
  EXPECT_EQ(spec.Item(2)->ETD(), at(2026, 11, 17));
}

TEST(StoredBulletin, TakesAnUnreadableDepartureTimeForThatOf1970) {
  GetSPFIBRsp response;
  test::load(response, stored("<n:tas/>" + stage("yssy", "soon", "ymml")));
  ASSERT_EQ(response.SPFIBSpec()->Count(), 1);
  EXPECT_EQ(response.SPFIBSpec()->TAS(), L"");
  EXPECT_EQ(response.SPFIBSpec()->Item(1)->ETD(), at(1970, 1, 1));
}

TEST(StoredBulletin, KeepsItsFirstTenStages) {
  std::string stages;
  for (int number = 1; number <= 11; ++number) {
    stages += stage("y" + std::to_string(number), "2026-11-16", "ymml");
  }
  GetSPFIBRsp response;
  test::load(response, stored("<n:tas/>" + stages));
  EXPECT_EQ(response.SPFIBSpec()->Count(), 10);
  EXPECT_EQ(response.SPFIBSpec()->Item(10)->Departing(), L"Y10");
}

TEST(StoredBulletin, HasNothingWithoutADuration) {
  const test::FailureRecorder recorder;
  GetSPFIBRsp response;
  test::load(response, test::success("<n:spfib><n:tas>N0450</n:tas></n:spfib>"));
  EXPECT_EQ(recorder.reports(), missingElement);
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Duration(), L"");
  EXPECT_EQ(response.SPFIBSpec(), nullptr);
}

TEST(StoredBulletin, HasOnlyItsDurationWithoutAFlight) {
  const test::FailureRecorder recorder;
  GetSPFIBRsp response;
  test::load(response, test::success("<n:duration>PT6H</n:duration>"));
  EXPECT_EQ(recorder.reports(), missingElement);
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Duration(), L"PT6H");
  ASSERT_NE(response.SPFIBSpec(), nullptr);
  EXPECT_EQ(response.SPFIBSpec()->TAS(), L"N0100");
  EXPECT_EQ(response.SPFIBSpec()->Count(), 0);
}

TEST(StoredBulletin, HasNoStagesWithoutAnAirspeed) {
  const test::FailureRecorder recorder;
  GetSPFIBRsp response;
  test::load(response, stored(stage("yssy", "2026-11-16", "ymml")));
  EXPECT_EQ(recorder.reports(), missingElement);
  ASSERT_NE(response.SPFIBSpec(), nullptr);
  EXPECT_EQ(response.SPFIBSpec()->TAS(), L"N0100");
  EXPECT_EQ(response.SPFIBSpec()->Count(), 0);
}

TEST(StoredBulletin, KeepsTheStagesBeforeAnIncompleteOne) {
  const std::string adep = "<n:adep>yssy</n:adep>";
  const std::string ades = "<n:ades>ymml</n:ades>";
  const std::string etd = "<n:etd>2026-11-16</n:etd>";
  for (const std::string& incomplete : {ades + etd, adep + etd, adep + ades}) {
    const test::FailureRecorder recorder;
    GetSPFIBRsp response;
    test::load(response,
               stored("<n:tas>N0450</n:tas>" + stage("ypad", "2026-11-16", "ymml") + "<n:stage>" +
                      incomplete + "</n:stage>" + stage("ybbn", "2026-11-16", "ymml")));
    EXPECT_EQ(recorder.reports(), missingElement);
    EXPECT_FALSE(response.Error());
    ASSERT_NE(response.SPFIBSpec(), nullptr);
    EXPECT_EQ(response.SPFIBSpec()->TAS(), L"N0450");
    ASSERT_EQ(response.SPFIBSpec()->Count(), 1);
    EXPECT_EQ(response.SPFIBSpec()->Item(1)->Departing(), L"YPAD");
  }
}

TEST(StoredBulletin, StaysEmptyWhenItFailed) {
  const test::FailureRecorder recorder;
  GetSPFIBRsp response;
  test::load(response, test::answer("<n:answer status=\"FAILURE\">"
                                    "<n:duration>PT6H</n:duration></n:answer>"));
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.Duration(), L"");
  EXPECT_EQ(response.SPFIBSpec(), nullptr);
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

}  // namespace
}  // namespace ktpnaips
