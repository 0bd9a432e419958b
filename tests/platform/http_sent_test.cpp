#include <gtest/gtest.h>
#include <ktpnaips/platform/http.h>

#include <atomic>
#include <string>

#include "tests/support/http_call.h"
#include "tests/support/platform_expectations.h"
#include "tests/support/raw_server.h"

namespace ktpnaips::test {
namespace {

class HttpSent : public testing::Test {
 protected:
  static HttpOutcome callOn(const std::wstring& address, const std::string& body = "<a/>") {
    HttpCall call;
    call.route.connectTo = address;
    call.body = body;
    return run(call);
  }
  static HttpOutcome callOn(const RawServer& server) { return callOn(server.address()); }

 private:
  NoProxies noProxies_;
};

TEST_F(HttpSent, IsNothingBeforeSending) {
  const RawServer server([](Peer& peer) { peer.readRequest(); });
  callOn(server);
  http::Exchange exchange;
  EXPECT_FALSE(exchange.hasSent());
  open(exchange, {});
  EXPECT_FALSE(exchange.hasSent());
}

TEST_F(HttpSent, IsNothingWhenTheConnectionIsRefused) {
  EXPECT_FALSE(callOn(L"127.0.0.1:" + std::to_wstring(unusedPort())).isSent);
}

TEST_F(HttpSent, IsNothingWhenTheNameIsNotKnown) {
  HttpCall call;
  call.host = L"naips.invalid";
  EXPECT_FALSE(run(call).isSent);
}

TEST_F(HttpSent, IsTheRequestThatIsAnswered) {
  for (const char* const status : {"200 OK", "407 Log in", "500 Error"}) {
    const RawServer server([status](Peer& peer) {
      peer.readRequest();
      peer.write(std::string("HTTP/1.1 ") + status + "\r\nContent-Length: 0\r\n\r\n");
    });
    EXPECT_TRUE(callOn(server).isSent) << status;
  }
}

TEST_F(HttpSent, IsTheRequestThatIsNotAnswered) {
  const RawServer server([](Peer& peer) { peer.readRequest(); });
  EXPECT_TRUE(callOn(server).isSent);
}

TEST_F(HttpSent, IsARequestOfWhichThereIsAPart) {
  const RawServer server([](Peer& peer) {
    peer.readHead();
    peer.reset();
  });
  EXPECT_TRUE(callOn(server.address(), std::string(30'000'000, 'x')).isSent);
}

TEST_F(HttpSent, IsOfTheLastSend) {
  const RawServer server({[](Peer& peer) {
                           peer.readRequest();
                           peer.write("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
                         }},
                         1);
  EXPECT_TRUE(callOn(server).isSent);
  const HttpOutcome refused = callOn(server);
  EXPECT_EQ(refused.code, 12029U);
  // Where connections are kept, the one of the first call may have been tried before.
  EXPECT_EQ(refused.isSent, expectations().http.keepsConnections);
}

TEST_F(HttpSent, IsAnnouncedBeforeItReachesTheServer) {
  std::atomic<bool> isAnnounced = false;
  std::atomic<bool> wasAnnounced = false;
  const RawServer server([&](Peer& peer) {
    peer.waitForBytes();
    wasAnnounced = isAnnounced.load();
    peer.readRequest();
    peer.write("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
  });
  HttpCall call;
  call.route.connectTo = server.address();
  http::Exchange exchange;
  open(exchange, call);
  exchange.whenSending([&] { isAnnounced = true; });
  EXPECT_FALSE(isAnnounced);
  EXPECT_EQ(exchange.send("<a/>"), 0U);
  EXPECT_TRUE(wasAnnounced);
}

}  // namespace
}  // namespace ktpnaips::test
