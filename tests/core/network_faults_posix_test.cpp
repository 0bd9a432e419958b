#include <gtest/gtest.h>
#include <openssl/ssl.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "tests/core/network_faults.h"
#include "tests/support/network_faults.h"
#include "tests/support/raw_server.h"
#include "tests/support/test_certificates.h"

namespace ktpnaips::test {
namespace {

/// Here only: Windows may send again over a connection that it kept.
class FilingInNetworkFaults : public testing::TestWithParam<NetworkFault> {};

INSTANTIATE_TEST_SUITE_P(Http, FilingInNetworkFaults, testing::ValuesIn(networkFaults()),
                         nameOfFault);

TEST_P(FilingInNetworkFaults, ReachesTheServerOnceAtMost) {
  const RawServer server({[](Peer& peer) {
                            peer.readRequest();
                            peer.write(goodAnswer());
                          },
                          GetParam().misbehave});
  const SubmitsTo there(server.address(), GetParam().receiveLimit);
  EXPECT_FALSE(fileFlightPlan().isError);
  fileFlightPlan();
  EXPECT_EQ(server.connections(), 2);
}

/// The same over HTTPS, for which the tests have a server here only.
class SecureNetworkFaults : public testing::TestWithParam<NetworkFault> {
 protected:
  [[nodiscard]] RawServer::Script secured(RawServer::Script script) const {
    return [script, context = authority_.server({})](Peer& peer) {
      peer.startTls(context.get());
      script(peer);
    };
  }

  CertificateAuthority authority_;
};

INSTANTIATE_TEST_SUITE_P(Https, SecureNetworkFaults, testing::ValuesIn(networkFaults()),
                         nameOfFault);

TEST_P(SecureNetworkFaults, ShowTheHostWhatHappened) {
  const RawServer server(secured(GetParam().misbehave));
  const SubmitsTo there(server.address(), GetParam().receiveLimit, authority_.file());
  const SubmitOutcome outcome = fileFlightPlan();
  expectSeen(outcome, GetParam().expected());
  EXPECT_EQ(outcome.outcome, outcome.isError ? Outcome::inDoubt : Outcome::success);
}

TEST_P(SecureNetworkFaults, LetAFilingReachTheServerOnceAtMost) {
  const RawServer server({secured([](Peer& peer) {
                            peer.readRequest();
                            peer.write(goodAnswer());
                          }),
                          secured(GetParam().misbehave)});
  const SubmitsTo there(server.address(), GetParam().receiveLimit, authority_.file());
  EXPECT_FALSE(fileFlightPlan().isError);
  fileFlightPlan();
  EXPECT_EQ(server.connections(), 2);
}

/// Faults of TLS itself.
class TlsFaults : public testing::Test {
 protected:
  void expectOnFiling(const RawServer& server, const Seen& seen, Outcome expected) const {
    const SubmitsTo there(server.address(), 20'000, authority_.file());
    const SubmitOutcome outcome = fileFlightPlan();
    EXPECT_EQ(server.connections(), 1);
    expectSeen(outcome, {seen});
    EXPECT_EQ(outcome.outcome, expected);
  }

  CertificateAuthority authority_;
};

TEST_F(TlsFaults, ShowAClosedHandshake) {
  const RawServer server([](Peer& peer) { peer.waitForBytes(); });
  expectOnFiling(server, failed(12031), Outcome::notSent);
}

TEST_F(TlsFaults, ShowAHandshakeThatEndsInItsMiddle) {
  const RawServer server([](Peer& peer) {
    // The start of a record of 74 bytes, a server's first.
    peer.write({"\x16\x03\x03\x00\x4a\x02\x00\x00\x46\x03\x03", 11});
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    peer.reset();
  });
  expectOnFiling(server, failed(12031), Outcome::notSent);
}

TEST_F(TlsFaults, ShowAServerThatSpeaksTls10Only) {
  const RawServer server([context = authority_.server({})](Peer& peer) {
    SSL_CTX_set_security_level(context.get(), 0);
    SSL_CTX_set_min_proto_version(context.get(), TLS1_VERSION);
    SSL_CTX_set_max_proto_version(context.get(), TLS1_VERSION);
    peer.startTls(context.get());
    peer.readRequest();
    peer.write(goodAnswer());
  });
  expectOnFiling(server, failed(12157), Outcome::notSent);
}

TEST_F(TlsFaults, ShowABodyThatEndsWithTheConnectionWithoutAGoodbye) {
  const RawServer server([context = authority_.server({})](Peer& peer) {
    SSL_CTX_set_quiet_shutdown(context.get(), 1);
    peer.startTls(context.get());
    peer.readRequest();
    peer.write("HTTP/1.0 200 OK\r\nContent-Type: text/xml\r\n\r\n" + goodBody().substr(0, 50));
  });
  expectOnFiling(server, shown(L"<?xml"), Outcome::inDoubt);
}

}  // namespace
}  // namespace ktpnaips::test
