#include "tests/platform/http_proxy.h"

#include <optional>
#include <string>
#include <vector>

#include "tests/support/platform_expectations.h"

namespace ktpnaips::test {
namespace {

TEST_F(HttpProxy, GoesThroughTheProxyOfTheSystem) {
  const RawServer proxy(noting(carried));
  const ScopedProxy use(address(proxy));
  EXPECT_EQ(run({}).body, "<b/>");
  std::string request = inOrder(requests_.at(0));
  if (const auto port = request.find(":80/"); port != std::string::npos) request.erase(port, 3);
  EXPECT_EQ(request,
            "POST http://naips.example/naips/service HTTP/1.1\r\n"
            "Accept-Language: en\r\n"
            "Accept: text/*\r\n"
            "Connection: Keep-Alive\r\n"
            "Content-Length: 4\r\n"
            "Content-Type: text/xml; charset=utf-8\r\n"
            "Host: naips.example\r\n"
            "User-Agent: Velmora Flight Planner\r\n"
            "\r\n"
            "<a/>");
}

TEST_F(HttpProxy, GoesDirectWhenTheRouteNamesAnAddress) {
  const RawServer proxy(noting(refusal));
  const RawServer server(noting(carried));
  const ScopedProxy use(address(proxy));
  HttpCall call;
  call.route.connectTo = server.address();
  EXPECT_EQ(run(call).status, "200");
  EXPECT_EQ(proxy.connections(), 0);
}

TEST_F(HttpProxy, ReportsAProxyThatDiesWithTheRequest) {
  const RawServer proxy([](Peer& peer) { peer.readRequest(); });
  const ScopedProxy use(address(proxy));
  EXPECT_EQ(run({}).code, expectations().http.noAnswer);
  EXPECT_EQ(proxy.connections(), 1);
}

TEST_F(HttpProxy, ReturnsA407WhenNobodyLogsIn) {
  const RawServer proxy(noting(refusal));
  const ScopedProxy use(address(proxy));
  const HttpOutcome outcome = run({});
  EXPECT_EQ(outcome.code, 0U);
  EXPECT_EQ(outcome.status, "407");
  EXPECT_EQ(outcome.contentType, "text/html");
  EXPECT_EQ(outcome.body, "who?");
  EXPECT_EQ(proxy.connections(), 1);
}

TEST_F(HttpProxy, ReturnsA407WhenWhoIsAskedGivesUp) {
  const RawServer proxy(noting(refusal));
  const ScopedProxy use(address(proxy));
  setProxyLogIn([](std::wstring_view, int) { return std::nullopt; });
  EXPECT_EQ(run({}).body, "who?");
}

TEST_F(HttpProxy, SendsAgainWithTheAccountThatWasGiven) {
  const RawServer proxy(asking());
  const ScopedProxy use(address(proxy));
  logInAs(L"Aladdin", L"open sesame");
  const HttpOutcome outcome = run({});
  EXPECT_EQ(outcome.status, "200");
  EXPECT_EQ(outcome.body, "<b/>");
  EXPECT_EQ(outcome.logIns, 1);
  EXPECT_EQ(askedFor_, std::vector<std::wstring>{L"127.0.0.1"});
  ASSERT_GE(requests_.size(), 2U);
  EXPECT_FALSE(carriesAladdin(0));
  EXPECT_TRUE(requests_.back().ends_with("\r\n\r\n<a/>"));
}

TEST_F(HttpProxy, AsksAgainWhenTheAccountIsRefusedAndSaysWhichAttemptItIs) {
  const RawServer proxy(asking());
  const ScopedProxy use(address(proxy));
  for (int call = 0; call < 2; ++call) {
    std::vector<int> attempts;
    setProxyLogIn([&](std::wstring_view, int attempt) {
      attempts.push_back(attempt);
      return ProxyCredentials{L"Aladdin", attempt == 1 ? L"sesame" : L"open sesame"};
    });
    const HttpOutcome outcome = run({});
    EXPECT_EQ(outcome.code, 0U);
    EXPECT_EQ(outcome.status, "200");
    EXPECT_EQ(outcome.logIns, 2);
    EXPECT_EQ(attempts, (std::vector<int>{1, 2}));
  }
}

TEST_F(HttpProxy, TriesTheSameAccountTwiceAndNotAThirdTime) {
  const RawServer proxy(noting(refusal));
  const ScopedProxy use(address(proxy));
  logInAs(L"Aladdin", L"sesame");
  const HttpOutcome outcome = run({});
  EXPECT_EQ(outcome.status, "407");
  EXPECT_EQ(outcome.body, "who?");
  EXPECT_EQ(outcome.logIns, 2);
  EXPECT_EQ(askedFor_.size(), 3U);
}

TEST_F(HttpProxy, TriesNoneOfTwoAccountsThatTakeTurnsAThirdTime) {
  const RawServer proxy(noting(refusal));
  const ScopedProxy use(address(proxy));
  setProxyLogIn([](std::wstring_view, int attempt) {
    return ProxyCredentials{attempt % 2 == 0 ? L"Aladdin" : L"Jasmine", L"sesame"};
  });
  EXPECT_EQ(run({}).logIns, 4);
}

TEST_F(HttpProxy, AsksForNoAccountWhenTheServiceAnswersLikeAProxy) {
  const RawServer service(noting(refusal));
  const RawServer proxy(noting(carried));
  const ScopedProxy use(address(proxy));
  HttpCall call;
  call.route.connectTo = service.address();
  logInAs(L"Aladdin", L"open sesame");
  const HttpOutcome outcome = run(call);
  EXPECT_EQ(outcome.status, "407");
  EXPECT_EQ(outcome.body, "who?");
  EXPECT_EQ(askedFor_, std::vector<std::wstring>{});
  EXPECT_EQ(service.connections(), 1);
}

TEST_F(HttpProxy, HasNotPassedOnWhatItWantsAnAccountFor) {
  const RawServer proxy(noting(refusal));
  const ScopedProxy use(address(proxy));
  EXPECT_FALSE(run({}).isSent);
}

}  // namespace
}  // namespace ktpnaips::test
