#include <gtest/gtest.h>
#include <ktpnaips/platform/http.h>
#include <ktpnaips/platform/proxy_log_in.h>
#include <ktpnaips/platform/text.h>

#include <memory>
#include <string>

#include "tests/support/http_call.h"
#include "tests/support/raw_server.h"
#include "tests/support/scoped_environment.h"
#include "tests/support/squid.h"
#include "tests/support/test_certificates.h"

namespace ktpnaips::test {
namespace {

const std::string success =
    "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: 4\r\n\r\n<b/>";

class SquidProxy : public testing::Test {
 protected:
  static void SetUpTestSuite() { squid() = std::make_unique<Squid>(); }
  static void TearDownTestSuite() { squid().reset(); }
  ~SquidProxy() override { setProxyLogIn({}); }

  static std::unique_ptr<Squid>& squid() {
    static std::unique_ptr<Squid> running;
    return running;
  }
  static void logInAs(const std::wstring& user, const std::wstring& password) {
    setProxyLogIn([user, password, asked = false](std::wstring_view) mutable {
      const bool first = !asked;
      asked = true;
      return first ? std::optional(ProxyCredentials{user, password}) : std::nullopt;
    });
  }
  static RawServer::Script plain() {
    return [](Peer& peer) {
      peer.readRequest();
      peer.write(success);
    };
  }
  RawServer::Script secured() const {
    return [context = authority_.server({})](Peer& peer) {
      peer.startTls(context.get());
      peer.readRequest();
      peer.write(success);
    };
  }
  static HttpCall plainCall(const RawServer& server) {
    HttpCall call;
    call.host = L"127.0.0.1";
    call.port = server.port();
    return call;
  }
  HttpCall securedCall(const RawServer& server) const {
    HttpCall call = plainCall(server);
    call.flags = lenientTls;
    call.route.caFile = text::fromUtf8(authority_.file());
    return call;
  }

  CertificateAuthority authority_;

 private:
  NoProxies noProxies_;
  ScopedEnvironment http_{"http_proxy", squid()->url()};
  ScopedEnvironment https_{"https_proxy", squid()->url()};
};

TEST_F(SquidProxy, RefusesWhoDoesNotLogIn) {
  const RawServer server(plain());
  const HttpOutcome outcome = run(plainCall(server));
  EXPECT_EQ(outcome.status, "407");
  EXPECT_NE(outcome.body.find("<html"), std::string::npos);
  EXPECT_EQ(server.connections(), 0);
}

TEST_F(SquidProxy, CarriesTheRequestOnceLoggedIn) {
  const RawServer server(plain());
  logInAs(L"pilot", L"secret 1");
  const HttpOutcome outcome = run(plainCall(server));
  EXPECT_EQ(outcome.status, "200");
  EXPECT_EQ(outcome.body, "<b/>");
  EXPECT_EQ(server.connections(), 1);
}

TEST_F(SquidProxy, RefusesAWrongPassword) {
  const RawServer server(plain());
  logInAs(L"pilot", L"guess");
  const HttpOutcome outcome = run(plainCall(server));
  EXPECT_EQ(outcome.status, "407");
  EXPECT_EQ(outcome.logIns, 1);
  EXPECT_EQ(server.connections(), 0);
}

TEST_F(SquidProxy, RefusesATunnelToWhoDoesNotLogIn) {
  const RawServer server(secured());
  const HttpOutcome outcome = run(securedCall(server));
  EXPECT_EQ(outcome.code, 0U);
  EXPECT_EQ(outcome.status, "407");
  EXPECT_EQ(server.connections(), 0);
}

TEST_F(SquidProxy, TunnelsOnceLoggedIn) {
  const RawServer server(secured());
  logInAs(L"pilot", L"secret 1");
  const HttpOutcome outcome = run(securedCall(server));
  EXPECT_EQ(outcome.status, "200");
  EXPECT_EQ(outcome.body, "<b/>");
  EXPECT_EQ(server.connections(), 1);
}

TEST_F(SquidProxy, ReportsAServerThatTheProxyCannotReachAsItsAnswer) {
  logInAs(L"pilot", L"secret 1");
  HttpCall call;
  call.host = L"127.0.0.1";
  call.port = unusedPort();
  EXPECT_EQ(run(call).status, "503");
}

}  // namespace
}  // namespace ktpnaips::test
