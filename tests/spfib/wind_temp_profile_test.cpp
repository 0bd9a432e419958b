#include <ktpnaips/core/request_document.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/spfib/wind_temp_profile.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "tests/support/date_time.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

using test::at;
using test::part;
using test::written;

const std::string zeroDate = "<ndd:etd>1899-12-30T00:00:00Z</ndd:etd>";

TEST(ProfileStage, WritesItsDefaultsWithoutARoute) {
  const WindTempStage stage;
  EXPECT_EQ(stage.ETD(), at(1899, 12, 30));
  EXPECT_EQ(stage.Depart(), L"");
  EXPECT_EQ(stage.Destination(), L"");
  EXPECT_EQ(stage.Route(), L"");
  EXPECT_EQ(written(stage), part("<ndd:adep/><ndd:ades/>" + zeroDate));
}

TEST(ProfileStage, WritesItsDepartureTimeAfterItsPlaces) {
  WindTempStage stage;
  stage.Route(L" wol  h65 ");
  stage.ETD(at(2026, 11, 16, 2, 23, 7));
  stage.Destination(L" ym  ml ");
  stage.Depart(L" ys  sy ");
  EXPECT_EQ(stage.Depart(), L"YS  SY");
  EXPECT_EQ(stage.Destination(), L"YM  ML");
  EXPECT_EQ(stage.Route(), L"WOL  H65");
  EXPECT_EQ(written(stage), part("<ndd:adep>YS  SY</ndd:adep><ndd:ades>YM  ML</ndd:ades>"
                                 "<ndd:etd>2026-11-16T02:23:07Z</ndd:etd>"
                                 "<ndd:route>WOL  H65</ndd:route>"));
}

TEST(ProfileStage, GoesDirectWhenItsRouteIsSetToNothing) {
  for (const wchar_t* nothing : {L"", L"   "}) {
    WindTempStage stage;
    stage.Route(nothing);
    EXPECT_EQ(stage.Route(), L"DCT");
    EXPECT_EQ(written(stage),
              part("<ndd:adep/><ndd:ades/>" + zeroDate + "<ndd:route>DCT</ndd:route>"));
  }
}

TEST(ProfileStage, ReportsAFailureUnderTheNameOfTheBulletinStage) {
  EXPECT_EQ(test::outcomesOfAppending(WindTempStage()),
            test::Outcomes{test::outOfMemory(L"IAppendable_appendTo", L"SPFIBStage")});
}

class Profile : public testing::Test {
 protected:
  static std::string document(const std::string& content) {
    return test::requestWith("wind-temp-profile-rqs", content);
  }

  WindTempProfileRqs request;

 private:
  test::FreshSettings settings_;
};

std::shared_ptr<WindTempStage> windStageFrom(std::wstring_view place) {
  auto stage = std::make_shared<WindTempStage>();
  stage->Depart(place);
  return stage;
}

std::string windStageText(const std::string& place) {
  return "<ndd:stage><ndd:adep>" + place + "</ndd:adep><ndd:ades/>" + zeroDate + "</ndd:stage>";
}

TEST_F(Profile, HoldsOnlyAnEmptyAirspeedAtFirst) {
  EXPECT_EQ(request.abstractReq().ElementName(), L"wind-temp-profile-rqs");
  EXPECT_EQ(request.TAS(), L"");
  EXPECT_EQ(requestDocument(request), document("<ndd:tas/>"));
}

TEST_F(Profile, WritesItsAirspeedAfterItsStages) {
  request.TAS(L" n  0450 ");
  request.addStage(windStageFrom(L"yssy"));
  request.addStage(windStageFrom(L"yscb"));
  EXPECT_EQ(request.TAS(), L"N  0450");
  EXPECT_EQ(requestDocument(request),
            document(windStageText("YSSY") + windStageText("YSCB") + "<ndd:tas>N  0450</ndd:tas>"));
}

TEST_F(Profile, TakesUpToTenStages) {
  request.addStage(nullptr);
  std::string expected;
  for (int number = 1; number <= 11; ++number) {
    request.addStage(windStageFrom(L"y" + std::to_wstring(number)));
    if (number <= 10) expected += windStageText("Y" + std::to_string(number));
  }
  EXPECT_EQ(requestDocument(request), document(expected + "<ndd:tas/>"));
}

class FailingWindStage : public WindTempStage {
 public:
  void appendTo(const xml::Node&, std::wstring_view) const override {
    throw RuntimeFault(fault::typeMismatch);
  }
};

TEST_F(Profile, ReportsItsFailuresAndKeepsWhatItWrote) {
  request.addStage(std::make_shared<FailingWindStage>());
  request.addStage(windStageFrom(L"yssy"));
  const test::FailureRecorder recorder;
  EXPECT_EQ(requestDocument(request), document("<ndd:stage/>"));
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 13 (Type mismatch) in procedure IAppendable_appendTo of Class "
                          L"Module WindTempProfileRequest"});
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"WindTempProfileRequest")});
}

}  // namespace
}  // namespace ktpnaips
