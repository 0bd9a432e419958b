#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "tests/support/date_time.h"
#include "tests/support/failing_allocation.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/fault.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using test::at;

template <class Rqs>
constexpr const char* elementOf = nullptr;
template <>
constexpr const char* elementOf<AreaBriefingRqs> = "area-brief-rqs";
template <>
constexpr const char* elementOf<LocationBriefingRqs> = "loc-brief-rqs";
template <>
constexpr const char* elementOf<MetBriefingRqs> = "met-brief-rqs";

/// The request document of an unset account with these children.
template <class Rqs>
std::string with(const std::string& children) {
  const std::string name = elementOf<Rqs>;
  return test::requestEnvelope(test::requestStart(name) + ">" + children + "</ndd:" + name + ">");
}

class BriefingRequests : public testing::Test {
 private:
  test::FreshSettings settings_;
};

using AreaBriefing = BriefingRequests;
using LocationBriefing = BriefingRequests;
using MetBriefing = BriefingRequests;

const std::string areaFlagsClear =
    R"(<ndd:flags met="false" ntm="false" hon="false" charts="false" mid-sigwx-gpwt="false" )"
    R"(variant="LO"/>)";
const std::string locationFlagsClear =
    R"(<ndd:flags met="false" ntm="false" hon="false" sigmet="false"/>)";

TEST_F(AreaBriefing, HoldsOnlyItsFlagsAtFirst) {
  const AreaBriefingRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"area-brief-rqs");
  EXPECT_EQ(requestDocument(request), with<AreaBriefingRqs>(areaFlagsClear));
}

TEST_F(AreaBriefing, WritesHeaderThenPeriodThenAreasThenFlags) {
  NAIPSConfig config;
  config.UserName(L"pilot1");
  config.Password(L"pw");
  AreaBriefingRqs request;
  request.abstractReq().Scope(L"All");
  request.briefingReq().From(at(2026, 11, 16, 2, 23, 0));
  request.briefingReq().Till(at(2026, 11, 16, 8, 0, 0));
  request.addArea(L"30");
  request.addArea(L"20");
  request.setFlag(0, true);
  request.setFlag(5, true);
  EXPECT_EQ(requestDocument(request),
            test::requestEnvelope(
                "<ndd:area-brief-rqs" + test::nddDeclaration() +
                R"( source="orvalix" requestor="PILOT1" password="pw" scope="All"><ndd:period>)"
                "<ndd:from>2026-11-16T02:23:00Z</ndd:from><ndd:till>2026-11-16T08:00:00Z</ndd:till>"
                "</ndd:period><ndd:area>30</ndd:area><ndd:area>20</ndd:area>"
                R"(<ndd:flags met="true" ntm="false" hon="false" charts="false" )"
                R"(mid-sigwx-gpwt="false" variant="HI"/></ndd:area-brief-rqs>)"));
}

TEST_F(AreaBriefing, WritesEachFlagFromItsBit) {
  const std::string flags[] = {
      R"(met="true" ntm="false" hon="false" charts="false" mid-sigwx-gpwt="false" variant="LO")",
      R"(met="false" ntm="true" hon="false" charts="false" mid-sigwx-gpwt="false" variant="LO")",
      R"(met="false" ntm="false" hon="true" charts="false" mid-sigwx-gpwt="false" variant="LO")",
      R"(met="false" ntm="false" hon="false" charts="true" mid-sigwx-gpwt="false" variant="LO")",
      R"(met="false" ntm="false" hon="false" charts="false" mid-sigwx-gpwt="true" variant="LO")",
      R"(met="false" ntm="false" hon="false" charts="false" mid-sigwx-gpwt="false" variant="HI")"};
  for (int bit = 0; bit < 6; ++bit) {
    AreaBriefingRqs request;
    request.setFlag(bit, true);
    EXPECT_TRUE(request.flag(bit));
    EXPECT_EQ(requestDocument(request), with<AreaBriefingRqs>("<ndd:flags " + flags[bit] + "/>"));
    request.setFlag(bit, false);
    EXPECT_EQ(requestDocument(request), with<AreaBriefingRqs>(areaFlagsClear));
  }
}

TEST_F(AreaBriefing, KeepsBitsWithoutMeaningOutOfTheDocument) {
  AreaBriefingRqs request;
  for (int bit = 6; bit <= 30; ++bit) {
    request.setFlag(bit, true);
    EXPECT_TRUE(request.flag(bit));
  }
  EXPECT_EQ(requestDocument(request), with<AreaBriefingRqs>(areaFlagsClear));
}

TEST_F(AreaBriefing, DropsASixthArea) {
  AreaBriefingRqs request;
  const test::FailureRecorder recorder;
  for (const wchar_t* area : {L"1", L"2", L"1", L"4", L"5", L"6"}) request.addArea(area);
  EXPECT_EQ(requestDocument(request),
            with<AreaBriefingRqs>("<ndd:area>1</ndd:area><ndd:area>2</ndd:area>"
                                  "<ndd:area>1</ndd:area><ndd:area>4</ndd:area>"
                                  "<ndd:area>5</ndd:area>" +
                                  areaFlagsClear));
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST_F(AreaBriefing, KeepsAreasExactlyAsGiven) {
  AreaBriefingRqs request;
  request.addArea(L" ymmm \u00e9");
  request.addArea(L"");
  EXPECT_EQ(
      requestDocument(request),
      with<AreaBriefingRqs>("<ndd:area> ymmm \xC3\xA9</ndd:area><ndd:area/>" + areaFlagsClear));
}

TEST_F(AreaBriefing, ForgetsOnlyItsAreasWhenTheyAreCleared) {
  AreaBriefingRqs request;
  request.briefingReq().Duration(3);
  request.setFlag(1, true);
  for (int i = 0; i < 5; ++i) request.addArea(L"1");
  request.clearAreas();
  request.addArea(L"7");
  EXPECT_EQ(requestDocument(request),
            with<AreaBriefingRqs>("<ndd:duration>PT03H</ndd:duration><ndd:area>7</ndd:area>"
                                  R"(<ndd:flags met="false" ntm="true" hon="false" charts="false" )"
                                  R"(mid-sigwx-gpwt="false" variant="LO"/>)"));
}

TEST_F(LocationBriefing, HoldsOnlyItsFlagsAtFirst) {
  const LocationBriefingRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"loc-brief-rqs");
  EXPECT_EQ(requestDocument(request), with<LocationBriefingRqs>(locationFlagsClear));
}

TEST_F(LocationBriefing, WritesPeriodThenLocationsThenFlags) {
  LocationBriefingRqs request;
  request.briefingReq().Duration(12);
  request.addLocation(L"YSSY");
  request.addLocation(L" ymml ");
  request.addLocation(L"YSSY");
  request.setFlag(0, true);
  request.setFlag(3, true);
  EXPECT_EQ(requestDocument(request),
            with<LocationBriefingRqs>(
                "<ndd:duration>PT12H</ndd:duration><ndd:loc>YSSY</ndd:loc><ndd:loc> ymml </ndd:loc>"
                R"(<ndd:loc>YSSY</ndd:loc><ndd:flags met="true" ntm="false" hon="false" )"
                R"(sigmet="true"/>)"));
}

TEST_F(LocationBriefing, WritesEachFlagFromItsBit) {
  const std::string flags[] = {R"(met="true" ntm="false" hon="false" sigmet="false")",
                               R"(met="false" ntm="true" hon="false" sigmet="false")",
                               R"(met="false" ntm="false" hon="true" sigmet="false")",
                               R"(met="false" ntm="false" hon="false" sigmet="true")"};
  for (int bit = 0; bit < 4; ++bit) {
    LocationBriefingRqs request;
    request.setFlag(bit, true);
    EXPECT_EQ(requestDocument(request),
              with<LocationBriefingRqs>("<ndd:flags " + flags[bit] + "/>"));
  }
}

TEST_F(LocationBriefing, KeepsBitsWithoutMeaningOutOfTheDocument) {
  LocationBriefingRqs request;
  for (int bit = 4; bit <= 30; ++bit) request.setFlag(bit, true);
  EXPECT_TRUE(request.flag(4));
  EXPECT_EQ(requestDocument(request), with<LocationBriefingRqs>(locationFlagsClear));
}

TEST_F(LocationBriefing, DropsAThirteenthLocation) {
  LocationBriefingRqs request;
  std::string locations;
  for (int i = 1; i <= 13; ++i) {
    request.addLocation(std::to_wstring(i));
    if (i <= 12) locations += "<ndd:loc>" + std::to_string(i) + "</ndd:loc>";
  }
  EXPECT_EQ(requestDocument(request), with<LocationBriefingRqs>(locations + locationFlagsClear));
  request.clearLocations();
  EXPECT_EQ(requestDocument(request), with<LocationBriefingRqs>(locationFlagsClear));
}

TEST_F(MetBriefing, HoldsOnlyEmptyTypesAtFirst) {
  const MetBriefingRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"met-brief-rqs");
  EXPECT_EQ(requestDocument(request), with<MetBriefingRqs>("<ndd:types/>"));
}

TEST_F(MetBriefing, WritesPeriodThenLocationsThenTypesInTheOrderOfTheirBits) {
  MetBriefingRqs request;
  request.briefingReq().Duration(47);
  request.addLocation(L"YSSY");
  request.addLocation(L"YMML");
  for (const int bit : {8, 7, 5, 4, 3, 2, 1, 0}) request.setFlag(bit, true);
  EXPECT_EQ(requestDocument(request),
            with<MetBriefingRqs>(
                "<ndd:duration>PT47H</ndd:duration><ndd:loc>YSSY</ndd:loc><ndd:loc>YMML</ndd:loc>"
                "<ndd:types><ndd:message-type>TAF</ndd:message-type>"
                "<ndd:message-type>TTF</ndd:message-type>"
                "<ndd:message-type>METAR</ndd:message-type>"
                "<ndd:message-type>SPECI</ndd:message-type>"
                "<ndd:message-type>AQNH</ndd:message-type>"
                "<ndd:message-type>SIGMET</ndd:message-type>"
                "<ndd:message-type>AIRMET</ndd:message-type>"
                "<ndd:message-type>ATIS</ndd:message-type></ndd:types>"));
}

TEST_F(MetBriefing, WritesEachTypeFromItsBit) {
  const struct {
    int bit;
    const char* type;
  } types[] = {{0, "TAF"},  {1, "TTF"},    {2, "METAR"},  {3, "SPECI"},
               {4, "AQNH"}, {5, "SIGMET"}, {7, "AIRMET"}, {8, "ATIS"}};
  for (const auto& [bit, type] : types) {
    MetBriefingRqs request;
    request.setFlag(bit, true);
    EXPECT_EQ(requestDocument(request),
              with<MetBriefingRqs>("<ndd:types><ndd:message-type>" + std::string(type) +
                                   "</ndd:message-type></ndd:types>"));
  }
}

TEST_F(MetBriefing, HasNoMeaningForBit6) {
  MetBriefingRqs request;
  request.setFlag(6, true);
  EXPECT_TRUE(request.flag(6));
  EXPECT_EQ(requestDocument(request), with<MetBriefingRqs>("<ndd:types/>"));
}

TEST_F(MetBriefing, KeepsBitsWithoutMeaningOutOfTheDocument) {
  MetBriefingRqs request;
  for (int bit = 9; bit <= 30; ++bit) request.setFlag(bit, true);
  EXPECT_TRUE(request.flag(30));
  EXPECT_EQ(requestDocument(request), with<MetBriefingRqs>("<ndd:types/>"));
}

TEST_F(MetBriefing, DropsAFifthLocation) {
  MetBriefingRqs request;
  for (const wchar_t* location : {L"a", L"b", L"c", L"d", L"e"}) request.addLocation(location);
  EXPECT_EQ(requestDocument(request),
            with<MetBriefingRqs>("<ndd:loc>a</ndd:loc><ndd:loc>b</ndd:loc><ndd:loc>c</ndd:loc>"
                                 "<ndd:loc>d</ndd:loc><ndd:types/>"));
  request.clearLocations();
  request.addLocation(L"e");
  EXPECT_EQ(requestDocument(request), with<MetBriefingRqs>("<ndd:loc>e</ndd:loc><ndd:types/>"));
}

TEST_F(BriefingRequests, LeaveTheirFlagsAloneAtNegativeBitsAndOverflowFromBit31) {
  MetBriefingRqs request;
  request.setFlag(-1, true);
  EXPECT_FALSE(request.flag(-1));
  EXPECT_EQ(test::faultOf([&] { request.setFlag(31, true); }), fault::overflow);
  EXPECT_EQ(test::faultOf([&] { (void)request.flag(31); }), fault::overflow);
  EXPECT_EQ(requestDocument(request), with<MetBriefingRqs>("<ndd:types/>"));
}

/// What is reported when the request writes itself where it cannot, and the fault that gets out.
template <class Rqs>
test::Reports reportsOfAppendTo(std::int32_t& thrown) {
  const test::FailureRecorder recorder;
  const Rqs request;
  thrown = test::faultOf([&] { request.appendTo(xml::Node(), L"urn:x"); });
  const auto reports = recorder.reports();
  EXPECT_GE(reports.size(), 4U);
  return {reports.begin() + 4, reports.end()};  // addElement, then addAttribute three times
}

TEST_F(AreaBriefing, HasNoHandlerInAppendTo) {
  std::int32_t thrown = 0;
  EXPECT_EQ(reportsOfAppendTo<AreaBriefingRqs>(thrown), test::Reports{});
  EXPECT_EQ(thrown, fault::objectNotSet);
}

const test::Reports locationAppendToFailed{
    L"Error 91 (Object variable or With block variable not set) in procedure IAppendable_appendTo "
    L"of Class Module LocationBriefRequest"};

TEST_F(LocationBriefing, ReportsAFailingAppendTo) {
  std::int32_t thrown = 0;
  EXPECT_EQ(reportsOfAppendTo<LocationBriefingRqs>(thrown), locationAppendToFailed);
  EXPECT_EQ(thrown, 0);
}

TEST_F(MetBriefing, ReportsAFailingAppendToUnderTheNameOfTheLocationRequest) {
  std::int32_t thrown = 0;
  EXPECT_EQ(reportsOfAppendTo<MetBriefingRqs>(thrown), locationAppendToFailed);
  EXPECT_EQ(thrown, 0);
}

/// What is reported when submit cannot make its response.
template <class Rqs>
test::Reports reportsOfSubmit() {
  const Rqs request;
  const test::FailureRecorder recorder;
  std::shared_ptr<BriefingResponse> response;
  {
    const test::FailingAllocation failure;
    response = request.submit();
  }
  EXPECT_EQ(response, nullptr);
  return recorder.reports();
}

TEST_F(BriefingRequests, ReportAFailingSubmitUnderTheirOldNamesAndReturnNoResponse) {
  EXPECT_EQ(reportsOfSubmit<AreaBriefingRqs>(),
            test::Reports{
                L"Error 7 (Out of memory) in procedure submit of Class Module AreaBriefRequest"});
  EXPECT_EQ(
      reportsOfSubmit<LocationBriefingRqs>(),
      test::Reports{
          L"Error 7 (Out of memory) in procedure submit of Class Module LocationBriefRequest"});
  EXPECT_EQ(reportsOfSubmit<MetBriefingRqs>(),
            test::Reports{
                L"Error 7 (Out of memory) in procedure submit of Class Module MetBriefRequest"});
}

TEST_F(AreaBriefing, LeavesAFailureOfItsAppendToDuringSubmitToThePoster) {
  NAIPSConfig().Mode(5);
  const std::wstring expected = L"Error 7 (Out of memory) in procedure aaapost of Module Utils";
  AreaBriefingRqs request;
  request.addArea(L"an area with a name too long to be stored in place");
  bool reportedByPoster = false;
  for (int before = 1; before < 400; ++before) {
    const test::FailureRecorder recorder;
    std::shared_ptr<BriefingResponse> response;
    {
      const test::FailingAllocation failure(before);
      response = request.submit();
      if (!failure.hasFailed()) break;
    }
    for (const auto& report : recorder.reports()) {
      EXPECT_EQ(report.find(L"IAppendable_appendTo"), std::wstring::npos) << before;
      if (report != expected) continue;
      reportedByPoster = true;
      EXPECT_NE(response, nullptr);
    }
  }
  EXPECT_TRUE(reportedByPoster);
}

TEST_F(BriefingRequests, CanBeSubmittedAgainAndGiveANewResponseEachTime) {
  NAIPSConfig().Mode(5);
  const test::FailureRecorder recorder;
  AreaBriefingRqs request;
  const auto first = request.submit();
  request.addArea(L"30");
  const auto second = request.submit();
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(first->ErrorText().find(L"<ndd:area>"), std::wstring::npos);
  EXPECT_NE(second->ErrorText().find(L"<ndd:area>30</ndd:area>"), std::wstring::npos);
}

}  // namespace
}  // namespace ktpnaips
