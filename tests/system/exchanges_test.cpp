#include "tests/support/failure_recorder.h"
#include "tests/support/platform_expectations.h"
#include "tests/support/time_limits.h"
#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/naips_config.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>

using namespace ktpnaips;
using ktpnaips::test::FailureRecorder;
using simulator::Exchange;

namespace {

INSTANTIATE_TEST_SUITE_P(Schemes, Exchange, testing::Bool(), simulator::schemeName);

void expectPng(const BriefItem& item) {
  EXPECT_EQ(item.ProductType(), L"PNG");
  EXPECT_TRUE(simulator::isPng(item.File()));
}

TEST_P(Exchange, LogsInAndReadsTheHolderOfTheAccount) {
  const auto holder = AuthenticateRqs().submit();
  ASSERT_FALSE(holder->Error()) << std::string(holder->ErrorText().begin(),
                                               holder->ErrorText().end());
  EXPECT_EQ(holder->ErrorText(), L"");
  EXPECT_FALSE(holder->Name().empty());
  EXPECT_FALSE(holder->MOTD().empty());
  EXPECT_NE(holder->Email().find(L'@'), std::wstring::npos);
  EXPECT_TRUE(holder->Payload());
  EXPECT_TRUE(holder->ResponseDoc());
}

TEST_P(Exchange, LogsInAsTheAccountOfTheRequest) {
  NAIPSConfig().UserName(L"NOBODY");
  AuthenticateRqs request;
  request.abstractReq().User(L" demo ");
  request.abstractReq().Password(simulator::password);
  EXPECT_FALSE(request.submit()->Error());
  EXPECT_NE(simulator::lastRequest().find("requestor=\"DEMO\""), std::string::npos);
}

TEST_P(Exchange, IsRefusedWithAWrongPasswordAndSaysWhy) {
  NAIPSConfig().Password(L"wrong");
  const auto holder = AuthenticateRqs().submit();
  EXPECT_TRUE(holder->Error());
  EXPECT_EQ(holder->ErrorText().find(L"NAIPS Error: FAILURE\r\nInfo: "), 0U);
  EXPECT_NE(
      holder->ErrorText().find(L"\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n<SOAP-ENV:"),
      std::wstring::npos);
  EXPECT_EQ(holder->Name(), L"");
}

TEST_P(Exchange, BriefsALocationWithTextAndCharts) {
  LocationBriefingRqs request;
  request.addLocation(L"YSSY");
  request.addLocation(L"YMML");
  for (const int bit : {0, 1, 2, 3}) request.setFlag(bit, true);
  request.briefingReq().Duration(6);
  const auto briefing = request.submit();
  ASSERT_FALSE(briefing->Error());
  EXPECT_NE(briefing->Content().find(L"TAF YSSY"), std::wstring::npos);
  EXPECT_NE(briefing->Content().find(L"YMML"), std::wstring::npos);
  ASSERT_GE(briefing->Count(), 1);
  for (const auto& item : *briefing) expectPng(*item);
}

TEST_P(Exchange, BriefsAnAreaAndReportsGifChartsAsPng) {
  AreaBriefingRqs request;
  request.addArea(L"20");
  request.setFlag(0, true);
  request.setFlag(3, true);
  const auto briefing = request.submit();
  ASSERT_FALSE(briefing->Error());
  ASSERT_GE(briefing->Count(), 2);
  for (const auto& item : *briefing) expectPng(*item);
  EXPECT_NE(briefing->Item(1)->File(), briefing->Item(2)->File());
}

TEST_P(Exchange, BriefsTheMetMessagesAskedForOnly) {
  MetBriefingRqs request;
  request.addLocation(L"YSSY");
  request.setFlag(2, true);
  const auto briefing = request.submit();
  ASSERT_FALSE(briefing->Error());
  EXPECT_NE(briefing->Content().find(L"METAR YSSY"), std::wstring::npos);
  EXPECT_EQ(briefing->Content().find(L"TAF YSSY"), std::wstring::npos);
}

TEST_P(Exchange, IsRefusedForALocationThatDoesNotExist) {
  LocationBriefingRqs request;
  request.addLocation(L"QQQQ");
  const auto briefing = request.submit();
  EXPECT_TRUE(briefing->Error());
  EXPECT_NE(briefing->ErrorText().find(L"QQQQ"), std::wstring::npos);
  EXPECT_EQ(briefing->Count(), 0);
  EXPECT_EQ(briefing->Content(), L"");
}

TEST_P(Exchange, SubmitsARequestAgainWithFreshContent) {
  LocationBriefingRqs request;
  request.addLocation(L"YSSY");
  const auto first = request.submit();
  request.clearLocations();
  request.addLocation(L"YBBN");
  const auto second = request.submit();
  EXPECT_NE(first, second);
  EXPECT_EQ(second->Content().find(L"YSSY"), std::wstring::npos);
}

struct FaultCase {
  const char* fault;
  const wchar_t* start;  // of the error text
  const wchar_t* part;   // somewhere in it
};

constexpr const wchar_t* unrecognised = L"SOAP Fault: Unrecognised response.  Details below.\r\n";

/// What the system makes of the connection being closed in place of an answer.
const wchar_t* ifNoAnswer() {
  return test::expectations().http.noAnswer != 0 ? L"HttpSendRequest call failed: " : L"";
}

const std::array faultCases{
    FaultCase{"close-after-request", unrecognised, ifNoAnswer()},
    FaultCase{"reset-after-request", unrecognised, ifNoAnswer()},
    FaultCase{"truncate-body", unrecognised, L"<"},
    FaultCase{"http-500", unrecognised, L"HTTP/1.1 500"},
    FaultCase{"html-200", unrecognised, L"HTTP/1.1 200"},
    FaultCase{"not-xml", unrecognised, L""},
    FaultCase{"no-soap", L"SOAP Fault: Not a SOAP response\r\n", L""},
    FaultCase{"empty-body", unrecognised, L"Details below.\r\n\r\n"},
    FaultCase{"doctype", unrecognised, L"<!DOCTYPE"},
    FaultCase{"bad-utf8", unrecognised, L"\uFFFD"},
    FaultCase{"many-attributes", unrecognised, L""},
    FaultCase{"redirect", unrecognised,
              test::expectations().http.followsRedirects ? L"HTTP/1.1 404" : L"HTTP/1.1 302"},
};

/// A system that keeps connections sends again when a kept one turns out to be dead; one that
/// follows redirects asks once more.
std::size_t mostRequests(const std::string& fault) {
  const auto& system = test::expectations().http;
  if (fault == "redirect" && system.followsRedirects) return 2;
  return system.keepsConnections && fault.ends_with("-request") ? 3 : 1;
}

class Misbehaviour : public testing::TestWithParam<std::tuple<FaultCase, bool>> {
 private:
  const test::ShorterReceiveLimit limit_{2'000};
};

INSTANTIATE_TEST_SUITE_P(Faults, Misbehaviour,
                         testing::Combine(testing::ValuesIn(faultCases), testing::Bool()),
                         [](const auto& each) {
                           std::string name = std::get<0>(each.param).fault;
                           std::erase(name, '-');
                           return name + (std::get<1>(each.param) ? "Http" : "Https");
                         });

TEST_P(Misbehaviour, IsAnErrorWithAClearTextAndIsNeverSentTwice) {
  const auto& [fault, overHttp] = GetParam();
  simulator::use(overHttp);
  const auto before = simulator::requestCount();
  std::wstring text;
  {
    const FailureRecorder failures;
    const simulator::Fault active(fault.fault);
    const auto response = AuthenticateRqs().submit();
    EXPECT_TRUE(response->Error());
    text = response->ErrorText();
    EXPECT_TRUE(failures.reports().empty());
  }
  EXPECT_EQ(text.find(fault.start), 0U);
  EXPECT_NE(text.find(fault.part), std::wstring::npos);
  EXPECT_NE(text.find(L"In response to request:"), std::wstring::npos);
  EXPECT_LE(simulator::requestCount() - before, mostRequests(fault.fault));
  EXPECT_GE(simulator::requestCount() - before, 1U);
  // The next call is not affected, unless it is the one to find a kept connection dead.
  const bool mayFail = test::expectations().http.keepsConnections;
  EXPECT_TRUE(!AuthenticateRqs().submit()->Error() ||
              (mayFail && !AuthenticateRqs().submit()->Error()));
}

TEST_P(Exchange, ReportsAnAnswerWithoutStatusAndKeepsTheInitialText) {
  expectReport(L"Error 94 (Invalid use of Null) in procedure loadResponse of Module Utils");
  const simulator::Fault fault("no-status");
  const auto response = AuthenticateRqs().submit();
  EXPECT_TRUE(response->Error());
  EXPECT_EQ(response->ErrorText().find(L"No response set\r\n\r\n+-+-+-+\r\n"), 0U);
}

TEST_P(Exchange, ReadsATextOfThirtyMegabytesWhereTheDomTakesIt) {
  const simulator::Fault fault("big-text");
  LocationBriefingRqs request;
  request.addLocation(L"YSSY");
  const auto briefing = request.submit();
  const bool takes = test::expectations().longestText > 30'000'000;
  EXPECT_EQ(briefing->Error(), !takes && !test::expectations().cutsLongerTexts);
  EXPECT_EQ(briefing->Content().size() >= 30'000'000U, takes);
}

TEST_P(Exchange, ReadsACompleteDocumentThatIsShorterThanAnnouncedUnlessTheSystemLosesIt) {
  const test::ShorterReceiveLimit limit(2'000);
  const simulator::Fault fault("short-body");
  const bool isLost = !GetParam() && !test::expectations().http.keepsBlocksCutShort;
  EXPECT_EQ(AuthenticateRqs().submit()->Error(), isLost);
}

}  // namespace
