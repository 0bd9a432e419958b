#include "tests/support/date_time.h"
#include "tests/support/network_faults.h"
#include "tests/support/raw_server.h"
#include "tests/support/settings.h"
#include "tests/system/exchange.h"
#include "tests/system/nginx.h"
#include "tests/system/simulator.h"

#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/notification/filing.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <future>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

using namespace ktpnaips;
using simulator::firstBytes;
using simulator::holds;
using simulator::Response;
using simulator::succeeded;
using test::at;
using test::Peer;
using test::RawServer;

namespace {

/// Submits go to an nginx in front of the service: over HTTPS or, with true, over HTTP.
class Nginx : public simulator::Exchange {
 protected:
  void SetUp() override {
    Exchange::SetUp();
    direct_ = Deployment::current();
    goTo("naips");
    countBefore_ = requestCount();
    loggedBefore_ = nginx::log().size();
  }

  /// To the server that nginx.conf has under this name.
  void goTo(const std::string& name) {
    Deployment there = direct_;
    there.productionHost = text::fromUtf8(name + ".nginx.example");
    there.proxyHost = there.productionHost;
    there.connectTo = nginx::address(GetParam());
    there.caFile = nginx::authorityFile();
    through_.emplace(there);
  }

  /// What nginx has answered during the test.
  [[nodiscard]] std::vector<nginx::LogEntry> logged() const {
    std::vector<nginx::LogEntry> entries = nginx::log();
    entries.erase(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(loggedBefore_));
    return entries;
  }

  [[nodiscard]] std::size_t requestsAtTheService() const { return requestCount() - countBefore_; }

  /// The response shows the page that nginx answered with, and it was asked once.
  void expectPage(const Response& response, const std::string& status) const {
    const std::wstring title = text::fromUtf8(status);
    const std::wstring shown = response->ErrorText();
    EXPECT_TRUE(response->Error());
    EXPECT_TRUE(
        shown.starts_with(L"SOAP Fault: Unrecognised response.  Details below.\r\nHTTP/1.1 " +
                          title + L"\r\nServer: nginx"))
        << text::toUtf8(shown.substr(0, 1000));
    EXPECT_TRUE(holds(shown, L"\r\n\r\n<html>\r\n<head><title>" + title + L"</title></head>\r\n"));
    EXPECT_TRUE(holds(shown, L"</html>\r\n"));
    EXPECT_TRUE(holds(shown, L"\r\n+-+-+-+\r\nIn response to request:\r\n\r\n<"));
    const auto entries = logged();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(std::to_string(entries.front().status), status.substr(0, 3));
  }

 private:
  [[nodiscard]] std::size_t requestCount() const {
    const test::ScopedDeployment direct(direct_);
    return simulator::requestCount();
  }

  Deployment direct_;
  std::optional<test::ScopedDeployment> through_;
  std::size_t countBefore_ = 0;
  std::size_t loggedBefore_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Schemes, Nginx, testing::Bool(), simulator::schemeName);

std::shared_ptr<SubmitICAOFlightNotifRsp> file(const std::wstring& remark = {}) {
  const auto stage = std::make_shared<ICAOFlightNotifStage>();
  stage->Aircraft(L"VHNGX");
  stage->Depart(L"YSSY");
  stage->Destination(L"YMML");
  stage->TEET(90);
  stage->ETD(at(2026, 11, 20, 22));
  stage->Route(std::make_shared<ICAORoute>());
  stage->OtherInfo(std::make_shared<ICAOOtherInfo>());
  stage->OtherInfo()->RMK(remark);
  SubmitICAOFlightNotifRqs request;
  request.Notification()->Add(stage);
  return request.submit();
}

TEST_P(Nginx, CarriesALogInOnce) {
  const auto holder = AuthenticateRqs().submit();
  ASSERT_TRUE(succeeded(holder));
  EXPECT_FALSE(holder->Name().empty());
  EXPECT_EQ(requestsAtTheService(), 1U);
  EXPECT_EQ(logged().size(), 1U);
}

TEST_P(Nginx, CarriesAFilingOnce) {
  const auto filed = file();
  ASSERT_TRUE(succeeded(filed));
  ASSERT_EQ(filed->Count(), 1);
  EXPECT_TRUE(filed->Item(1).starts_with(L"(FPL-VHNGX-"));
  EXPECT_EQ(requestsAtTheService(), 1U);
  EXPECT_EQ(logged().size(), 1U);
}

TEST_P(Nginx, ShowsItsPageWhenTheServiceIsNotThere) {
  goTo("to-" + std::to_string(test::unusedPort()));
  expectPage(file(), "502 Bad Gateway");
  EXPECT_EQ(requestsAtTheService(), 0U);
}

TEST_P(Nginx, ShowsItsPageWhenTheServiceDiesWithTheRequest) {
  const RawServer dying([](Peer& peer) { peer.readRequest(); });
  goTo("to-" + std::to_string(dying.port()));
  expectPage(file(), "502 Bad Gateway");
  EXPECT_EQ(dying.connections(), 1);
}

TEST_P(Nginx, ShowsItsPageWhenTheServiceIsSilent) {
  const RawServer silent([](Peer& peer) {
    peer.readRequest();
    peer.waitForClose();
  });
  goTo("to-" + std::to_string(silent.port()));
  expectPage(file(), "504 Gateway Time-out");
  EXPECT_EQ(silent.connections(), 1);
}

TEST_P(Nginx, ShowsItsPageForAFilingThatIsTooLong) {
  constexpr std::size_t twiceTheLimit = 2 * 1024 * 1024;
  expectPage(file(std::wstring(twiceTheLimit, L'X')), "413 Request Entity Too Large");
  EXPECT_EQ(requestsAtTheService(), 0U);
}

TEST_P(Nginx, ShowsItsPageWhenItIsBusyAndCarriesTheOtherCall) {
  std::promise<void> asked;
  std::promise<void> refused;
  const RawServer slow([&](Peer& peer) {
    peer.readRequest();
    asked.set_value();
    refused.get_future().wait();
    peer.write(test::goodAnswer());
  });
  goTo("singly-to-" + std::to_string(slow.port()));
  Response first;
  std::thread other([&] {
    simulator::use(GetParam());
    first = file();
  });
  EXPECT_EQ(asked.get_future().wait_for(std::chrono::seconds(20)), std::future_status::ready);
  expectPage(file(), "503 Service Temporarily Unavailable");
  refused.set_value();
  other.join();
  EXPECT_TRUE(succeeded(first));
  EXPECT_EQ(slow.connections(), 1);
}

TEST_P(Nginx, ShowsItsPageWhenItDeniesTheAddress) {
  goTo("denying");
  expectPage(file(), "403 Forbidden");
  EXPECT_EQ(requestsAtTheService(), 0U);
}

TEST_P(Nginx, DoesNotZipTheAnswerWithoutBeingAsked) {
  const std::string asked = nginx::answerTo(
      "GET / HTTP/1.1\r\nHost: zipping.nginx.example\r\nAccept-Encoding: gzip\r\n"
      "Connection: close\r\n\r\n");
  ASSERT_NE(asked.find("\r\nContent-Encoding: gzip\r\n"), std::string::npos) << asked;
  goTo("zipping");
  const auto holder = AuthenticateRqs().submit();
  ASSERT_TRUE(succeeded(holder));
  EXPECT_FALSE(holder->Name().empty());
  EXPECT_EQ(requestsAtTheService(), 2U) << "the one that asked and this";
}

std::shared_ptr<BriefingResponse> briefWithCharts() {
  AreaBriefingRqs request;
  request.addArea(L"20");
  for (int bit = 0; bit <= 5; ++bit) request.setFlag(bit, true);
  return request.submit();
}

std::string contentOf(const std::wstring& file) {
  return firstBytes(file, std::filesystem::file_size(std::filesystem::path(file)));
}

TEST_P(Nginx, BringsABriefingWithChartsWholeThoughInChunks) {
  const auto plain = briefWithCharts();
  goTo("chunking");
  const auto chunked = briefWithCharts();
  ASSERT_TRUE(succeeded(plain));
  ASSERT_TRUE(succeeded(chunked));
  EXPECT_FALSE(plain->Content().empty());
  EXPECT_EQ(chunked->Content(), plain->Content());
  ASSERT_GE(plain->Count(), 2);
  ASSERT_EQ(chunked->Count(), plain->Count());
  for (std::int16_t i = 1; i <= plain->Count(); ++i) {
    EXPECT_EQ(contentOf(chunked->Item(i)->File()), contentOf(plain->Item(i)->File()));
  }
  const auto entries = logged();
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries.front().transferEncoding, "-");
  EXPECT_EQ(entries.back().transferEncoding, "chunked");
  EXPECT_EQ(requestsAtTheService(), 2U);
}

TEST_P(Nginx, IsGivenAConnectionOfItsOwnForEachCallAndSpokenToInHttp11) {
  for (int call = 0; call < 3; ++call) EXPECT_TRUE(succeeded(AuthenticateRqs().submit()));
  std::set<std::string> connections;
  for (const nginx::LogEntry& each : logged()) {
    EXPECT_EQ(each.numberInConnection, 1);
    EXPECT_EQ(each.protocol, "HTTP/1.1");
    connections.insert(each.connection);
  }
  EXPECT_EQ(connections.size(), 3U);
  EXPECT_EQ(requestsAtTheService(), 3U);
}

TEST_P(Nginx, IsNotReachedDuringAnOutageAndIsAgainAfterIt) {
  EXPECT_TRUE(succeeded(AuthenticateRqs().submit()));
  {
    const nginx::Outage outage;
    const auto missed = file();
    EXPECT_TRUE(missed->Error());
    EXPECT_TRUE(holds(missed->ErrorText(), L"  Dec: 12029\t")) << text::toUtf8(missed->ErrorText());
  }
  EXPECT_TRUE(succeeded(AuthenticateRqs().submit()));
  EXPECT_EQ(requestsAtTheService(), 2U);
}

/// With certificates that are not right.
class NginxCertificate : public Nginx {};

INSTANTIATE_TEST_SUITE_P(Scheme, NginxCertificate, testing::Values(false), simulator::schemeName);

TEST_P(NginxCertificate, IsTakenWhenItIsForAnotherName) {
  goTo("misnamed");
  EXPECT_TRUE(succeeded(file()));
  EXPECT_EQ(requestsAtTheService(), 1U);
}

TEST_P(NginxCertificate, IsRefusedWhenItsIssuerIsUnknown) {
  goTo("stranger");
  const auto refused = file();
  EXPECT_TRUE(refused->Error());
  EXPECT_TRUE(holds(refused->ErrorText(), L"  Dec: 12045\t")) << text::toUtf8(refused->ErrorText());
  EXPECT_TRUE(logged().empty());
  EXPECT_EQ(requestsAtTheService(), 0U);
}

}  // namespace
