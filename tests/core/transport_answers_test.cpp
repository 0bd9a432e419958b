#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/platform/http.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/support/failure_recorder.h"
#include "tests/support/http_call.h"
#include "tests/support/raw_server.h"
#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

test::RawServer::Script answering(std::string answer) {
  return [answer = std::move(answer)](test::Peer& peer) {
    peer.readRequest();
    peer.write(answer);
  };
}

test::ScopedDeployment connectingTo(const std::wstring& address) {
  Deployment deployment;
  deployment.connectTo = address;
  return test::ScopedDeployment(deployment);
}

/// What a post is answered with when the server answers so.
std::string answerTo(const std::string& answer) {
  const test::RawServer server(answering(answer));
  const auto deployment = connectingTo(server.address());
  return winInet::winInetSend(L"http://h/p", L"name", "<a/>");
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

TEST(TransportAnswer, IsTheTextOfTheSendStepWhenNobodyListens) {
  const auto deployment = connectingTo(L"127.0.0.1:" + std::to_wstring(test::unusedPort()));
  const test::FailureRecorder recorder;
  const std::string answer = winInet::winInetSend(L"http://h/p", L"name", "<a/>");
  EXPECT_TRUE(answer.starts_with("HttpSendRequest call failed: ")) << answer;
  EXPECT_TRUE(answer.ends_with("  Dec: 12029\tHex: 2EFD")) << answer;
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST(TransportAnswer, IsTheTextOfTheSendStepForAHostWithAPort) {
  const test::NoProxies noProxies;
  const auto deployment = connectingTo(L"");
  const std::string answer = winInet::winInetSend(L"http://h:8080/p", L"name", "<a/>");
  EXPECT_TRUE(answer.starts_with("HttpSendRequest call failed: ")) << answer;
  EXPECT_TRUE(answer.ends_with("  Dec: 12007\tHex: 2EE7")) << answer;
}

TEST(HttpQuery, FillsTheValueWhenTheAnswerHasIt) {
  const test::RawServer server(
      answering("HTTP/1.1 404 Gone\r\nContent-Type: text/xml; a=b\r\nContent-Length: 0\r\n\r\n"));
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
  const test::RawServer server(answering("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n"));
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
