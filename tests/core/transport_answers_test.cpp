#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/platform/http.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/platform/http_proxy.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/http_call.h"
#include "tests/support/platform_expectations.h"
#include "tests/support/proxy_settings.h"
#include "tests/support/raw_server.h"
#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

test::ScopedDeployment connectingTo(const std::wstring& address) {
  Deployment deployment;
  deployment.connectTo = address;
  return test::ScopedDeployment(deployment);
}

/// What a post is answered with when the server answers so: headers, if they are kept, and body.
std::string answerTo(const std::string& answer) {
  const test::RawServer server(test::answering(answer));
  const auto deployment = connectingTo(server.address());
  const winInet::Answer read = winInet::winInetSend(L"http://h/p", L"name", "<a/>");
  EXPECT_TRUE(read.hasSent);
  EXPECT_FALSE(read.failure);
  return read.headers + read.body;
}

/// The code with which the send step fails.
http::ErrorCode codeOfSendStep(const std::wstring& url) {
  const winInet::Answer answer = winInet::winInetSend(url, L"name", "<a/>");
  if (!answer.failure) return 0;
  EXPECT_EQ(answer.failure->step, L"HttpSendRequest");
  EXPECT_EQ(answer.failure->message, winInet::apiErrorText(answer.failure->code));
  EXPECT_EQ(answer.status, "");
  EXPECT_FALSE(answer.hasSent);
  return answer.failure->code;
}

TEST(TransportAnswer, IsTheBodyAloneOfA200OfAnXmlType) {
  EXPECT_EQ(answerTo("HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: 4\r\n\r\n<b/>"),
            "<b/>");
}

TEST(TransportAnswer, IsWhatCameOfABodyThatIsSaidToBeEnormous) {
  EXPECT_EQ(answerTo("HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\n"
                     "Content-Length: 1000000000000000\r\n\r\n<b/>"),
            "<b/>");
}

TEST(TransportAnswer, StartsWithTheRawHeadersOtherwise) {
  for (const char* answer :
       {"HTTP/1.1 500 Error\r\nContent-Type: text/xml\r\nContent-Length: 4\r\n\r\n<b/>",
        "HTTP/1.1 201 Created\r\nContent-Type: text/xml\r\nContent-Length: 4\r\n\r\n<b/>",
        "HTTP/1.1 407 Proxy\r\nContent-Type: text/xml\r\nContent-Length: 4\r\n\r\n<b/>",
        "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 4\r\n\r\n<b/>",
        "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n<b/>"}) {
    EXPECT_EQ(answerTo(answer), answer);
  }
}

TEST(TransportAnswer, HasNoRawHeadersWhenTheyAreLongerThanAQueryReturns) {
  const std::string start =
      "HTTP/1.1 500 Error\r\nContent-Type: text/xml\r\nContent-Length: 4\r\nX: ";
  const std::string end = "\r\n\r\n";
  const std::string longest = start + std::string(1023 - start.size() - end.size(), 'x') + end;
  EXPECT_EQ(answerTo(longest + "<b/>"), longest + "<b/>");
  const std::string longer = start + std::string(1024 - start.size() - end.size(), 'x') + end;
  EXPECT_EQ(answerTo(longer + "<b/>"), "<b/>");
}

TEST(TransportAnswer, HasStatusAndContentTypeBesideThem) {
  const test::RawServer server(test::answering(
      "HTTP/1.1 404 Gone\r\nContent-Type: text/html; a=b\r\nContent-Length: 0\r\n\r\n"));
  const auto deployment = connectingTo(server.address());
  const winInet::Answer answer = winInet::winInetSend(L"http://h/p", L"name", "<a/>");
  EXPECT_EQ(answer.status, "404");
  EXPECT_EQ(answer.contentType, "text/html; a=b");
}

TEST(TransportAnswer, IsTheFailureOfTheSendStepWhenNobodyListens) {
  const auto deployment = connectingTo(L"127.0.0.1:" + std::to_wstring(test::unusedPort()));
  const test::FailureRecorder recorder;
  EXPECT_EQ(codeOfSendStep(L"http://h/p"), 12029U);
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST(TransportAnswer, IsTheFailureOfTheSendStepForAHostWithAPort) {
  const test::NoProxies noProxies;
  const auto deployment = connectingTo(L"");
  EXPECT_EQ(codeOfSendStep(L"http://h:8080/p"), 12007U);
}

TEST(TransportAnswer, IsATimeOutWhenNothingCanBeSentForTheTimeOfTheSendStep) {
  using Clock = std::chrono::steady_clock;
  const test::RawServer server([](test::Peer& peer) {
    peer.readHead();
    std::this_thread::sleep_for(std::chrono::seconds(3));
  });
  const auto deployment = connectingTo(server.address());
  winInet::timeLimits().send = 300;
  const auto start = Clock::now();
  const winInet::Answer answer =
      winInet::winInetSend(L"http://h/p", L"name", std::string(50'000'000, 'x'));
  winInet::timeLimits() = {};
  EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(2500));
  ASSERT_TRUE(answer.failure);
  EXPECT_PRED2(test::matches, answer.failure->code, test::expectations().http.sendTimeout);
}

class TransportThroughAProxy : public test::HttpProxy {
 protected:
  /// What is answered through a proxy of that script.
  static winInet::Answer answerOf(const test::RawServer::Script& script) {
    const test::RawServer server(script);
    const test::ScopedProxy proxy(address(server));
    return winInet::winInetSend(L"http://naips.example/p", L"name", "<a/>");
  }
};

TEST_F(TransportThroughAProxy, LogsInWhereTheProxyAsksForAnAccount) {
  logInAs(L"Aladdin", L"open sesame");
  const winInet::Answer answer = answerOf(asking());
  EXPECT_EQ(answer.status, "200");
  EXPECT_EQ(answer.headers, "");
  EXPECT_EQ(answer.body, "<b/>");
  EXPECT_EQ(askedFor_, std::vector<std::wstring>{L"127.0.0.1"});
  ASSERT_GE(requests_.size(), 2U);  // WinINet tries once more without the account
  EXPECT_TRUE(requests_.back().ends_with("\r\n\r\n<a/>"));
}

TEST_F(TransportThroughAProxy, AsksNobodyForAnAccountForAnyOtherAnswer) {
  logInAs(L"Aladdin", L"open sesame");
  const std::string refused =
      "HTTP/1.1 403 Refused\r\nContent-Type: text/html\r\nContent-Length: 2\r\n\r\nno";
  for (const std::string& each : {test::carried, refused}) answerOf(noting(each));
  EXPECT_EQ(askedFor_, std::vector<std::wstring>{});
  EXPECT_EQ(requests_.size(), 2U);
}

TEST(HttpQuery, FillsTheValueWhenTheAnswerHasIt) {
  const test::RawServer server(test::answering(
      "HTTP/1.1 404 Gone\r\nContent-Type: text/xml; a=b\r\nContent-Length: 0\r\n\r\n"));
  test::HttpCall call;
  call.route.connectTo = server.address();
  http::Exchange exchange;
  ASSERT_EQ(test::open(exchange, call), 0U);
  ASSERT_EQ(exchange.send("<a/>"), 0U);
  std::string value;
  EXPECT_TRUE(winInet::httpQueryInfo(exchange, http::Info::statusCode, value));
  EXPECT_EQ(value, "404");
  EXPECT_TRUE(winInet::httpQueryInfo(exchange, http::Info::contentType, value));
  EXPECT_EQ(value, "text/xml; a=b");
  EXPECT_TRUE(winInet::httpQueryInfo(exchange, http::Info::rawHeaders, value));
  EXPECT_EQ(value, "HTTP/1.1 404 Gone\r\nContent-Type: text/xml; a=b\r\nContent-Length: 0\r\n\r\n");
}

TEST(HttpQuery, LeavesTheValueAsItWasWhenTheAnswerDoesNotHaveIt) {
  const test::RawServer server(test::answering("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n"));
  test::HttpCall call;
  call.route.connectTo = server.address();
  http::Exchange exchange;
  ASSERT_EQ(test::open(exchange, call), 0U);
  ASSERT_EQ(exchange.send("<a/>"), 0U);
  std::string value = "before";
  EXPECT_FALSE(winInet::httpQueryInfo(exchange, http::Info::contentType, value));
  EXPECT_EQ(value, "before");
}

}  // namespace
}  // namespace ktpnaips
