#include <string>

#include "tests/platform/https_proxy.h"

namespace ktpnaips::test {
namespace {

/// Where Windows cannot tell, or the tests have no server there.
class HttpSentExactly : public HttpsProxy {
 protected:
  [[nodiscard]] HttpCall callTo(const RawServer& server) const {
    HttpCall made = call();
    made.route.connectTo = server.address();
    return made;
  }
};

TEST_F(HttpSentExactly, IsNothingWhenNobodyTakesTheConnection) {
  const FullListener listener;
  HttpCall call;
  call.route.connectTo = listener.address();
  call.connectTimeout = 300;
  EXPECT_EQ(run(call).code, 12002U);
  EXPECT_FALSE(run(call).isSent);
}

TEST_F(HttpSentExactly, IsNothingWhenTheCertificateIsRefused) {
  const CertificateAuthority stranger;
  const RawServer server([context = stranger.server({})](Peer& peer) {
    peer.startTls(context.get());
    peer.readHead();
  });
  const HttpOutcome outcome = run(callTo(server));
  EXPECT_EQ(outcome.code, 12045U);
  EXPECT_FALSE(outcome.isSent);
}

TEST_F(HttpSentExactly, IsNothingWhenTheHandshakeBreaksOff) {
  const RawServer server([](Peer& peer) {
    peer.waitForBytes();
    peer.reset();
  });
  const HttpOutcome outcome = run(callTo(server));
  EXPECT_EQ(outcome.code, 12031U);
  EXPECT_FALSE(outcome.isSent);
}

TEST_F(HttpSentExactly, IsNothingWhenTheHandshakeIsNotAnswered) {
  const RawServer server([](Peer& peer) { peer.waitForClose(); });
  HttpCall call = callTo(server);
  call.sendTimeout = 300;
  const HttpOutcome outcome = run(call);
  EXPECT_EQ(outcome.code, 12002U);
  EXPECT_FALSE(outcome.isSent);
}

TEST_F(HttpSentExactly, IsTheRequestInsideTls) {
  const RawServer server([context = authority_.server({})](Peer& peer) {
    peer.startTls(context.get());
    peer.readRequest();
  });
  EXPECT_TRUE(run(callTo(server)).isSent);
}

TEST_F(HttpSentExactly, IsNothingWhenTheProxyIsNotThere) {
  const ScopedProxy use("127.0.0.1:" + std::to_string(unusedPort()));
  EXPECT_FALSE(run({}).isSent);
  EXPECT_FALSE(run(call()).isSent);
}

TEST_F(HttpSentExactly, IsNothingWhenTheProxyRefusesTheTunnel) {
  for (const std::string& answer :
       {refusal, std::string("HTTP/1.1 503 Unreachable\r\nContent-Length: 0\r\n\r\n")}) {
    const RawServer proxy(noting(answer));
    const ScopedProxy use(address(proxy));
    EXPECT_FALSE(run(call()).isSent) << answer;
  }
}

TEST_F(HttpSentExactly, IsNothingWhenTheProxyDiesBeforeTheTunnelIsThere) {
  const RawServer proxy([](Peer& peer) { peer.readHead(); });
  const ScopedProxy use(address(proxy));
  EXPECT_FALSE(run(call()).isSent);
}

TEST_F(HttpSentExactly, IsNothingWhenTheTunnelEndsBeforeTheHandshake) {
  const RawServer proxy([](Peer& peer) {
    peer.readHead();
    peer.write("HTTP/1.1 200 Connection established\r\n\r\n");
  });
  const ScopedProxy use(address(proxy));
  EXPECT_FALSE(run(call()).isSent);
}

TEST_F(HttpSentExactly, IsTheRequestInsideATunnel) {
  const RawServer proxy([context = authority_.server({})](Peer& peer) {
    peer.readHead();
    peer.write("HTTP/1.1 200 Connection established\r\n\r\n");
    peer.startTls(context.get());
    peer.readRequest();
  });
  const ScopedProxy use(address(proxy));
  const HttpOutcome outcome = run(call());
  EXPECT_EQ(outcome.code, 12030U);
  EXPECT_TRUE(outcome.isSent);
}

TEST_F(HttpSentExactly, IsNothingWhenThereIsNoConnectionForTheSecondStepOfALogIn) {
  const RawServer proxy(
      {noting("HTTP/1.1 407 Log in\r\nProxy-Authenticate: Digest realm=\"p\", nonce=\"abc\", "
              "qop=\"auth\"\r\nContent-Length: 0\r\nConnection: close\r\n\r\n")},
      2);
  const ScopedProxy use(address(proxy));
  logInAs(L"Aladdin", L"open sesame");
  const HttpOutcome outcome = run({});
  EXPECT_EQ(outcome.code, 12029U);
  EXPECT_EQ(outcome.logIns, 1);
  EXPECT_EQ(requests_.size(), 2U);
  EXPECT_FALSE(outcome.isSent);
}

TEST_F(HttpSentExactly, IsNotAnnouncedWhenNothingIsSent) {
  const RawServer server([](Peer& peer) {
    peer.waitForBytes();
    peer.reset();
  });
  http::Exchange exchange;
  open(exchange, callTo(server));
  bool isAnnounced = false;
  exchange.whenSending([&] { isAnnounced = true; });
  EXPECT_NE(exchange.send("<a/>"), 0U);
  EXPECT_FALSE(isAnnounced);
}

}  // namespace
}  // namespace ktpnaips::test
