#include <ktpnaips/briefing/briefing_request.h>
#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "tests/support/date_time.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using test::at;

std::string with(const std::string& child) {
  return test::requestEnvelope(child);
}

std::string duration(const std::string& text) {
  return with("<ndd:duration" + test::nddDeclaration() + ">" + text + "</ndd:duration>");
}

const char* const noneChosen =
    "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\">"
    "<SOAP-ENV:Body/></SOAP-ENV:Envelope>";

TEST(BriefingPeriod, IsNotSetAtFirst) {
  const BriefingRequest request;
  EXPECT_EQ(request.From(), at(1970, 1, 1));
  EXPECT_EQ(request.Till(), at(1970, 1, 1));
  EXPECT_EQ(request.Duration(), 0);
  EXPECT_EQ(requestDocument(request), noneChosen);
}

TEST(BriefingPeriod, IsWrittenWithBothEndsAsTheyStand) {
  BriefingRequest request;
  request.From(at(2024, 5, 1, 6, 30, 0));
  request.Till(at(2024, 12, 31, 23, 59, 58));
  EXPECT_EQ(requestDocument(request),
            with("<ndd:period" + test::nddDeclaration() +
                 "><ndd:from>2024-05-01T06:30:00Z</ndd:from>"
                 "<ndd:till>2024-12-31T23:59:58Z</ndd:till></ndd:period>"));
}

TEST(BriefingPeriod, WinsOverTheDuration) {
  BriefingRequest request;
  request.From(at(2024, 5, 1, 6, 0, 0));
  request.Till(at(2024, 5, 1, 6, 0, 1));
  request.Duration(6);
  EXPECT_EQ(requestDocument(request),
            with("<ndd:period" + test::nddDeclaration() +
                 "><ndd:from>2024-05-01T06:00:00Z</ndd:from>"
                 "<ndd:till>2024-05-01T06:00:01Z</ndd:till></ndd:period>"));
}

TEST(BriefingPeriod, GivesWayToTheDurationWhenItEndsBeforeItStarts) {
  BriefingRequest request;
  request.From(at(2024, 5, 1, 6, 30, 0));
  request.Till(at(2024, 5, 1, 4, 0, 0));
  request.Duration(6);
  EXPECT_EQ(requestDocument(request), duration("PT06H"));
  request.Duration(48);
  EXPECT_EQ(requestDocument(request), noneChosen);
}

TEST(BriefingPeriod, NeedsItsEndAfterItsStart) {
  BriefingRequest request;
  request.From(at(2024, 5, 1));
  request.Till(at(2024, 5, 1));
  EXPECT_EQ(requestDocument(request), noneChosen);
}

TEST(BriefingPeriod, NeedsBothEnds) {
  BriefingRequest onlyStart;
  onlyStart.From(at(2024, 5, 1));
  EXPECT_EQ(requestDocument(onlyStart), noneChosen);
  BriefingRequest onlyEnd;
  onlyEnd.Till(at(2024, 5, 1));
  EXPECT_EQ(requestDocument(onlyEnd), noneChosen);
  BriefingRequest unsetEnd;
  unsetEnd.From(at(1969, 12, 31));
  unsetEnd.Till(at(1970, 1, 1));
  EXPECT_EQ(requestDocument(unsetEnd), noneChosen);
}

TEST(BriefingPeriod, MayStartBefore1970) {
  BriefingRequest request;
  request.From(at(1969, 12, 31, 23, 59, 59));
  request.Till(at(1970, 1, 1, 0, 0, 1));
  EXPECT_EQ(requestDocument(request),
            with("<ndd:period" + test::nddDeclaration() +
                 "><ndd:from>1969-12-31T23:59:59Z</ndd:from>"
                 "<ndd:till>1970-01-01T00:00:01Z</ndd:till></ndd:period>"));
}

TEST(BriefingDuration, IsWrittenInTwoDigitHours) {
  BriefingRequest request;
  request.Duration(6);
  EXPECT_EQ(requestDocument(request), duration("PT06H"));
  request.Duration(12);
  EXPECT_EQ(requestDocument(request), duration("PT12H"));
}

TEST(BriefingDuration, IsWrittenFrom1To47HoursOnly) {
  BriefingRequest request;
  request.Duration(1);
  EXPECT_EQ(requestDocument(request), duration("PT01H"));
  request.Duration(47);
  EXPECT_EQ(requestDocument(request), duration("PT47H"));
  for (const std::int16_t hours :
       {std::int16_t{0}, std::int16_t{48}, std::int16_t{-1},
        std::numeric_limits<std::int16_t>::max(), std::numeric_limits<std::int16_t>::min()}) {
    request.Duration(hours);
    EXPECT_EQ(request.Duration(), hours);
    EXPECT_EQ(requestDocument(request), noneChosen) << hours;
  }
}

TEST(BriefingPart, IsSubmittedAloneAndAnsweredByABriefingResponse) {
  const test::FreshSettings settings;
  NAIPSConfig().Mode(5);
  const test::FailureRecorder recorder;
  BriefingRequest request;
  request.Duration(6);
  const auto response = request.submit();
  ASSERT_NE(response, nullptr);
  EXPECT_TRUE(response->Error());
  EXPECT_EQ(response->Count(), 0);
  EXPECT_TRUE(response->ErrorText().ends_with(L"In response to request:\r\n\r\n" +
                                              text::fromUtf8(duration("PT06H"))));
}

}  // namespace
}  // namespace ktpnaips
