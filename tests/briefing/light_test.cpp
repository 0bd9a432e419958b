#include <ktpnaips/briefing/light.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "tests/support/date_time.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/local_clock.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using test::at;

class LightRequest : public testing::Test {
 protected:
  LightRequest() { request.ForDate(at(2026, 3, 7, 23, 59, 59)); }

  static std::string document(const std::string& point) {
    return test::requestWith("fl-ll-rqs", "<ndd:date>2026-03-07</ndd:date>" + point);
  }

  FirstLastLightRqs request;

 private:
  test::FreshSettings settings_;
};

TEST_F(LightRequest, IsForTheLocalTimeOfItsCreationAtFirst) {
  const DateTime before = test::localNow();
  const FirstLastLightRqs fresh;
  EXPECT_GE(fresh.ForDate(), before);
  EXPECT_LE(fresh.ForDate(), test::localNow());
  EXPECT_EQ(fresh.abstractReq().ElementName(), L"fl-ll-rqs");
  EXPECT_EQ(fresh.Point(), nullptr);
}

TEST_F(LightRequest, WritesItsDateAndAnEmptyPointAtFirst) {
  EXPECT_EQ(requestDocument(request), document("<ndd:point/>"));
  request.ForDate(at(899, 1, 2));
  EXPECT_EQ(requestDocument(request),
            test::requestWith("fl-ll-rqs", "<ndd:date>0899-01-02</ndd:date><ndd:point/>"));
}

TEST_F(LightRequest, HasThePointOfTheLastCall) {
  request.setNamed(L" yssy ");
  EXPECT_EQ(requestDocument(request), document("<ndd:point><ndd:loc>YSSY</ndd:loc></ndd:point>"));
  request.setNamed(L"sy045025");
  EXPECT_EQ(requestDocument(request),
            document("<ndd:point><ndd:bear-dist><ndd:loc>SY</ndd:loc><ndd:bear>45</ndd:bear>"
                     "<ndd:dist>025</ndd:dist></ndd:bear-dist></ndd:point>"));
  request.setLatLon(-33.8667, 151.2);
  EXPECT_EQ(requestDocument(request),
            document("<ndd:point><ndd:coord><ndd:lat>-33.866700</ndd:lat>"
                     "<ndd:long>151.200000</ndd:long></ndd:coord></ndd:point>"));
  request.setBearingDistance(L" wol ", 5, 7);
  EXPECT_EQ(requestDocument(request),
            document("<ndd:point><ndd:bear-dist><ndd:loc>WOL</ndd:loc><ndd:bear>5</ndd:bear>"
                     "<ndd:dist>007</ndd:dist></ndd:bear-dist></ndd:point>"));
  request.Point(std::make_shared<NamedPoint>(L"ymml"));
  EXPECT_EQ(request.Point()->toString(), L"YMML");
  request.Point(nullptr);
  EXPECT_EQ(requestDocument(request), document("<ndd:point/>"));
}

TEST_F(LightRequest, LeavesThePointOfAnInvalidOneEmpty) {
  request.setLatLon(-91, 0);
  EXPECT_EQ(requestDocument(request), document("<ndd:point/>"));
  request.setNamed(L"abc090000");
  EXPECT_EQ(requestDocument(request), document("<ndd:point/>"));
}

TEST_F(LightRequest, LeavesThePointEmptyWhoseValuesWereNeverSet) {
  const test::FailureRecorder recorder;
  for (const std::shared_ptr<Point>& unset :
       {std::shared_ptr<Point>(std::make_shared<NamedPoint>()),
        std::shared_ptr<Point>(std::make_shared<CoordinatePoint>()),
        std::shared_ptr<Point>(std::make_shared<BearingDistPoint>())}) {
    request.Point(unset);
    EXPECT_EQ(requestDocument(request), document("<ndd:point/>"));
  }
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST_F(LightRequest, TakesNumbersOfAnyMagnitude) {
  const test::FailureRecorder recorder;
  using Double = std::numeric_limits<double>;
  for (const double value : {1e300, -1e300, Double::infinity(), Double::quiet_NaN()}) {
    request.setLatLon(value, 0);
    EXPECT_EQ(requestDocument(request), document("<ndd:point/>"));
    request.setLatLon(0, value);
    EXPECT_EQ(requestDocument(request), document("<ndd:point/>"));
  }
  for (const std::int16_t value :
       {std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()}) {
    request.setBearingDistance(L"sy", value, 25);
    EXPECT_EQ(requestDocument(request), document("<ndd:point/>"));
    request.setBearingDistance(L"sy", 45, value);
    EXPECT_EQ(requestDocument(request), document("<ndd:point/>"));
  }
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

class FailingPoint : public Point {
 public:
  void appendTo(const xml::Node&, std::wstring_view) const override {
    throw RuntimeFault(fault::typeMismatch);
  }
  [[nodiscard]] std::wstring toString() const override { return {}; }
};

TEST_F(LightRequest, ReportsItsFailures) {
  request.Point(std::make_shared<FailingPoint>());
  const test::FailureRecorder recorder;
  EXPECT_EQ(requestDocument(request), document("<ndd:point/>"));
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 13 (Type mismatch) in procedure IAppendable_appendTo of Class "
                          L"Module FirstLastLightRequest"});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(FirstLastLightRqs()),
            test::Outcomes{test::missingObject(L"FirstLastLightRequest")});
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"FirstLastLightRequest")});
}

TEST(LightAnswer, ReadsAsFailedAndEmptyUntilItIsLoaded) {
  const FirstLastLightRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.ForDate(), L"");
  EXPECT_EQ(response.FirstLight(), L"");
  EXPECT_EQ(response.LastLight(), L"");
}

TEST(LightAnswer, HasTheTextsOfTheService) {
  FirstLastLightRsp response;
  test::load(response, test::success("<n:last> 0859 </n:last><n:first>2014Z</n:first>"
                                     "<n:date>2026-03-07</n:date>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.ForDate(), L"2026-03-07");
  EXPECT_EQ(response.FirstLight(), L"2014Z");
  EXPECT_EQ(response.LastLight(), L" 0859 ");
}

TEST(LightAnswer, LeavesMissingTextsEmpty) {
  const test::FailureRecorder recorder;
  FirstLastLightRsp response;
  test::load(response, test::success("<n:date>2026-03-07</n:date><n:last>0859</n:last>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.ForDate(), L"2026-03-07");
  EXPECT_EQ(response.FirstLight(), L"");
  EXPECT_EQ(response.LastLight(), L"0859");
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST(LightAnswer, TakesOnlyTextsThatAreItsOwnChildren) {
  const test::FailureRecorder recorder;
  FirstLastLightRsp response;
  test::load(response, test::success("<n:more><n:date>a</n:date><n:first>b</n:first><n:last>c"
                                     "</n:last></n:more><date>d</date>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.ForDate(), L"");
  EXPECT_EQ(response.FirstLight(), L"");
  EXPECT_EQ(response.LastLight(), L"");
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST(LightAnswer, StaysEmptyWhenItFailed) {
  FirstLastLightRsp response;
  test::load(response, test::answer("<n:answer status=\"NO\"><n:first>2014</n:first></n:answer>"));
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.FirstLight(), L"");
}

TEST(LightAnswer, ReportsAFailingExtraction) {
  EXPECT_EQ(test::outcomesOfLoading<FirstLastLightRsp>(
                test::success("<n:date>a date too long to be stored in place</n:date>")),
            test::Outcomes{test::outOfMemory(L"extractData", L"FirstLastLightRsp")});
}

}  // namespace
}  // namespace ktpnaips
