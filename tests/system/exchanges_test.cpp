#include "tests/support/failure_recorder.h"
#include "tests/system/simulator.h"

#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/naips_config.h>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>

using namespace ktpnaips;
using ktpnaips::test::FailureRecorder;

namespace {

/// Every exchange over HTTPS and over HTTP.
class Exchange : public testing::TestWithParam<bool> {
 protected:
  void SetUp() override { simulator::use(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(Schemes, Exchange, testing::Values(false, true),
                         [](const auto& each) { return each.param ? "Http" : "Https"; });

std::string firstBytes(const std::wstring& file, std::size_t count) {
  std::ifstream stream(std::filesystem::path(file), std::ios::binary);
  std::string bytes(count, '\0');
  stream.read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

void expectPng(const BriefItem& item) {
  EXPECT_EQ(item.ProductType(), L"PNG");
  EXPECT_EQ(firstBytes(item.File(), 8), "\x89PNG\r\n\x1A\n");
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

constexpr std::array faultCases{
    FaultCase{"close-after-request", unrecognised, L"HttpSendRequest call failed: "},
    FaultCase{"reset-after-request", unrecognised, L"HttpSendRequest call failed: "},
    FaultCase{"truncate-body", unrecognised, L"<"},
    FaultCase{"http-500", unrecognised, L"HTTP/1.1 500"},
    FaultCase{"html-200", unrecognised, L"HTTP/1.1 200"},
    FaultCase{"not-xml", unrecognised, L""},
    FaultCase{"no-soap", L"SOAP Fault: Not a SOAP response\r\n", L""},
    FaultCase{"empty-body", unrecognised, L"Details below.\r\n\r\n"},
    FaultCase{"doctype", unrecognised, L"<!DOCTYPE"},
    FaultCase{"bad-utf8", unrecognised, L"\uFFFD"},
    FaultCase{"many-attributes", unrecognised, L""},
    FaultCase{"redirect", unrecognised, L"HTTP/1.1 30"},
};

class Misbehaviour : public testing::TestWithParam<std::tuple<FaultCase, bool>> {};

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
  EXPECT_EQ(simulator::requestCount() - before, 1U);
  EXPECT_FALSE(AuthenticateRqs().submit()->Error()) << "the next call is not affected";
}

TEST_P(Exchange, ReportsAnAnswerWithoutStatusAndKeepsTheInitialText) {
  const FailureRecorder failures;
  const simulator::Fault fault("no-status");
  const auto response = AuthenticateRqs().submit();
  EXPECT_TRUE(response->Error());
  EXPECT_EQ(response->ErrorText().find(L"No response set\r\n\r\n+-+-+-+\r\n"), 0U);
  ASSERT_EQ(failures.reports().size(), 1U);
  EXPECT_EQ(failures.reports().front(),
            L"Error 94 (Invalid use of Null) in procedure loadResponse of Module Utils");
}

TEST_P(Exchange, ReadsATextOfThirtyMegabytes) {
  const simulator::Fault fault("big-text");
  LocationBriefingRqs request;
  request.addLocation(L"YSSY");
  const auto briefing = request.submit();
  EXPECT_FALSE(briefing->Error());
  EXPECT_GE(briefing->Content().size(), 30'000'000U);
}

TEST_P(Exchange, ReadsACompleteDocumentThatIsShorterThanAnnounced) {
  const simulator::Fault fault("short-body");
  EXPECT_FALSE(AuthenticateRqs().submit()->Error());
}

}  // namespace
