#include "tests/support/failure_recorder.h"
#include "tests/support/http_call.h"
#include "tests/support/proxy_settings.h"
#include "tests/support/raw_server.h"
#include "tests/support/settings.h"
#include "tests/system/simulator.h"

#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/platform/proxy_log_in.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

using namespace ktpnaips;

namespace {

/// Calls through a real proxy that asks for an account; see with-squid.
class SquidProxy : public testing::Test {
 protected:
  ~SquidProxy() override { setProxyLogIn({}); }

  void logInAs(const std::wstring& user, const std::wstring& password) {
    setProxyLogIn([=, this](std::wstring_view, int) {
      return timesAsked++ == 0 ? std::optional(ProxyCredentials{user, password}) : std::nullopt;
    });
  }
  static std::uint16_t simulatorPort() {
    const std::wstring address = simulator::address();
    return static_cast<std::uint16_t>(std::stoul(address.substr(address.rfind(L':') + 1)));
  }
  static test::HttpCall plainCall() {
    test::HttpCall call;
    call.host = L"127.0.0.1";
    call.port = simulatorPort();
    return call;
  }
  static test::HttpCall securedCall() {
    test::HttpCall call = plainCall();
    call.flags = test::lenientTls;
    call.route.caFile = simulator::authorityFile();
    return call;
  }

  int timesAsked = 0;
  const std::size_t before = countAtStart();

 private:
  static std::size_t countAtStart() {
    simulator::use(true);
    return simulator::requestCount();
  }

  test::ScopedProxy proxy_{simulator::squidAddress()};
};

TEST_F(SquidProxy, RefusesWhoDoesNotLogIn) {
  setProxyLogIn([](std::wstring_view, int) { return std::nullopt; });
  const test::HttpOutcome outcome = run(plainCall());
  EXPECT_EQ(outcome.status, "407");
  EXPECT_NE(outcome.body.find("<html"), std::string::npos);
  EXPECT_EQ(simulator::requestCount(), before);
}

TEST_F(SquidProxy, CarriesTheRequestOnceLoggedIn) {
  logInAs(L"pilot", L"secret 1");
  const test::HttpOutcome outcome = run(plainCall());
  EXPECT_EQ(outcome.code, 0U);
  EXPECT_NE(outcome.status, "407");
  EXPECT_EQ(timesAsked, 1);
  EXPECT_EQ(outcome.logIns, 1);
}

TEST_F(SquidProxy, RefusesAWrongPassword) {
  logInAs(L"pilot", L"guess");
  const test::HttpOutcome outcome = run(plainCall());
  EXPECT_EQ(outcome.status, "407");
  EXPECT_EQ(outcome.logIns, 1);
  EXPECT_EQ(simulator::requestCount(), before);
}

TEST_F(SquidProxy, RefusesATunnelToWhoDoesNotLogIn) {
  setProxyLogIn([](std::wstring_view, int) { return std::nullopt; });
  const test::HttpOutcome outcome = run(securedCall());
  EXPECT_EQ(outcome.code, 0U);
  EXPECT_EQ(outcome.status, "407");
  EXPECT_EQ(simulator::requestCount(), before);
}

TEST_F(SquidProxy, TunnelsOnceLoggedIn) {
  logInAs(L"pilot", L"secret 1");
  const test::HttpOutcome outcome = run(securedCall());
  EXPECT_EQ(outcome.code, 0U);
  EXPECT_NE(outcome.status, "407");
  EXPECT_EQ(outcome.logIns, 1);
}

TEST_F(SquidProxy, ReportsAServerThatTheProxyCannotReachAsItsAnswer) {
  logInAs(L"pilot", L"secret 1");
  test::HttpCall call = plainCall();
  call.port = test::unusedPort();
  EXPECT_EQ(run(call).status, "503");
}

/// Submits go to the host's own name, through the proxy, instead of straight to the simulator.
class SubmitThroughSquid : public SquidProxy {
 protected:
  SubmitThroughSquid() {
    Deployment deployment = outer_;
    deployment.connectTo.clear();
    Deployment::use(deployment);
  }
  ~SubmitThroughSquid() override { Deployment::use(outer_); }

  [[nodiscard]] std::size_t requestsAtTheService() const {
    const test::ScopedDeployment direct(outer_);
    return simulator::requestCount() - before;
  }

 private:
  Deployment outer_ = Deployment::current();
};

TEST_F(SubmitThroughSquid, ASubmitIsAnsweredByTheServiceOnceLoggedIn) {
  logInAs(L"pilot", L"secret 1");
  const auto response = AuthenticateRqs().submit();
  EXPECT_FALSE(response->Error()) << text::toUtf8(response->ErrorText());
  EXPECT_FALSE(response->Name().empty());
  EXPECT_EQ(timesAsked, 1);
  EXPECT_EQ(requestsAtTheService(), 1U);
}

TEST_F(SubmitThroughSquid, ASubmitReportsTheProxysAnswerWithItsHeadersWhenNobodyLogsIn) {
  setProxyLogIn([](std::wstring_view, int) { return std::nullopt; });
  const test::FailureRecorder failures;
  const auto response = AuthenticateRqs().submit();
  EXPECT_TRUE(response->Error());
  EXPECT_EQ(
      response->ErrorText().find(L"SOAP Fault: Unrecognised response.  Details below.\r\nHTTP/1.1 "
                                 L"407 Proxy Authentication Required\r\n"),
      0U);
  EXPECT_TRUE(failures.reports().empty());
}

}  // namespace
