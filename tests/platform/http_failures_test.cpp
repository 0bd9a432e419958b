#include <gtest/gtest.h>
#include <ktpnaips/platform/http.h>

#include <chrono>
#include <string>
#include <thread>

#include "tests/support/http_call.h"
#include "tests/support/platform_expectations.h"
#include "tests/support/raw_server.h"

namespace ktpnaips::test {
namespace {

using std::chrono::milliseconds;

class HttpFailures : public testing::Test {
 protected:
  static HttpCall callTo(const std::wstring& address) {
    HttpCall call;
    call.route.connectTo = address;
    return call;
  }
  static HttpOutcome callOn(const RawServer& server) { return run(callTo(server.address())); }
  static milliseconds timeOf(const HttpCall& call, HttpOutcome& outcome) {
    const auto start = std::chrono::steady_clock::now();
    outcome = run(call);
    return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - start);
  }

 private:
  NoProxies noProxies_;
};

TEST_F(HttpFailures, ReportsARefusedConnection) {
  HttpCall call = callTo(L"127.0.0.1:" + std::to_wstring(unusedPort()));
  EXPECT_EQ(run(call).code, 12029U);
}

TEST_F(HttpFailures, ReportsANameThatCannotBeResolved) {
  HttpCall call;
  call.host = L"naips.invalid";
  EXPECT_EQ(run(call).code, 12007U);
}

TEST_F(HttpFailures, NeverResolvesAHostWithAPortText) {
  const RawServer server([](Peer&) {});
  HttpCall call;
  call.host = server.address();
  EXPECT_EQ(run(call).code, 12007U);
  EXPECT_EQ(server.connections(), 0);
}

TEST_F(HttpFailures, NeverTakesPartsOfAUrlForAHost) {
  for (const wchar_t* const host : {L"user:password@127.0.0.1", L"127.0.0.1?x", L"127.0.0.1#x",
                                    L"a b", L"a\r\nb", L"[::1", L"%31"}) {
    HttpCall call;
    call.host = host;
    EXPECT_EQ(run(call).code, 12007U) << testing::PrintToString(std::wstring(host));
  }
}

TEST_F(HttpFailures, RefusesAnEmptyHostWhenConnecting) {
  http::Exchange exchange;
  exchange.openSession("agent");
  EXPECT_EQ(exchange.connect(L"", 80, {}), 87U);
}

TEST_F(HttpFailures, RefusesAnAddressToConnectToThatIsNone) {
  for (const wchar_t* const text : {L"here", L":80", L"here:", L"here:0", L"here:65536", L"here:8x",
                                    L"a b:80", L"::1:80", L"http://here:80"}) {
    http::Exchange exchange;
    exchange.openSession("agent");
    EXPECT_EQ(exchange.connect(L"naips.example", 80, {text, L""}), 12005U)
        << testing::PrintToString(std::wstring(text));
  }
}

TEST_F(HttpFailures, RefusesToSendWhatWasNotOpened) {
  http::Exchange exchange;
  EXPECT_EQ(exchange.send("x"), 12018U);
  char buffer = 0;
  EXPECT_EQ(exchange.read(&buffer, 1), std::nullopt);
  EXPECT_EQ(exchange.query(http::Info::statusCode), std::nullopt);
}

TEST_F(HttpFailures, ReportsAConnectionThatIsClosedWithoutAnAnswerAndSendsNothingTwice) {
  const RawServer server([](Peer& peer) { peer.readRequest(); });
  EXPECT_EQ(callOn(server).code, expectations().http.noAnswer);
  EXPECT_EQ(server.connections(), 1);
}

TEST_F(HttpFailures, SendsNothingTwiceEitherAfterAGoodExchangeOfTheSameThread) {
  const RawServer server({[](Peer& peer) {
                            peer.readRequest();
                            peer.write("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
                          },
                          [](Peer& peer) { peer.readRequest(); }});
  EXPECT_EQ(callOn(server).code, 0U);
  EXPECT_EQ(callOn(server).code, expectations().http.noAnswer);
  EXPECT_EQ(server.connections(), 2);
}

TEST_F(HttpFailures, ReportsAResetBeforeTheRequestIsRead) {
  const RawServer server([](Peer& peer) {
    peer.waitForBytes();
    peer.reset();
  });
  EXPECT_TRUE(expectations().http.isReset(callOn(server).code));
  EXPECT_EQ(server.connections(), 1);
}

TEST_F(HttpFailures, ReportsAResetWhileTheBodyIsSent) {
  const RawServer server([](Peer& peer) {
    peer.readHead();
    peer.reset();
  });
  HttpCall call = callTo(server.address());
  call.body = std::string(30'000'000, 'x');
  EXPECT_PRED2(matches, run(call).code, expectations().http.resetWhileSending);
  EXPECT_EQ(server.connections(), 1);
}

TEST_F(HttpFailures, ReportsAResetInPlaceOfAnAnswer) {
  const RawServer server([](Peer& peer) {
    peer.readRequest();
    peer.reset();
  });
  EXPECT_TRUE(expectations().http.isReset(callOn(server).code));
}

TEST_F(HttpFailures, ReportsHeadersThatBreakOff) {
  const RawServer server([](Peer& peer) {
    peer.readRequest();
    peer.write("HTTP/1.1 200 OK\r\nContent-Le");
  });
  EXPECT_EQ(callOn(server).code, expectations().http.notHttp);
}

TEST_F(HttpFailures, ReportsAnAnswerThatIsNotHttp) {
  const RawServer server([](Peer& peer) {
    peer.readRequest();
    peer.write("SSH-2.0-OpenSSH\r\n\r\n");
  });
  EXPECT_EQ(callOn(server).code, expectations().http.notHttp);
}

TEST_F(HttpFailures, EndsABodyWithoutSuccessWhenItIsShort) {
  const RawServer server([](Peer& peer) {
    peer.readRequest();
    peer.write("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n<b/>");
  });
  const HttpOutcome outcome = callOn(server);
  EXPECT_EQ(outcome.code, 0U);
  EXPECT_EQ(outcome.body, "<b/>");
  EXPECT_EQ(outcome.bodyIsWhole, expectations().http.takesShortBodiesForWhole);
}

TEST_F(HttpFailures, EndsABodyWithoutSuccessWhenItIsReset) {
  const RawServer server([](Peer& peer) {
    peer.readRequest();
    peer.write("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\n<b/>\r\n");
    std::this_thread::sleep_for(milliseconds(100));
    peer.reset();
  });
  const HttpOutcome outcome = callOn(server);
  EXPECT_EQ(outcome.code, 0U);
  EXPECT_EQ(outcome.body, expectations().http.keepsBlocksCutShort ? "<b/>" : "");
  EXPECT_FALSE(outcome.bodyIsWhole);
}

TEST_F(HttpFailures, TimesOutWhileConnectingUnlessTheSystemWaitsLonger) {
  FullListener listener;
  HttpCall call = callTo(listener.address());
  call.connectTimeout = 300;
  std::thread endOfPatience([&listener] {
    std::this_thread::sleep_for(milliseconds(1500));
    listener.close();
  });
  HttpOutcome outcome;
  const milliseconds taken = timeOf(call, outcome);
  endOfPatience.join();
  const bool timesOut = expectations().http.timesOutConnecting;
  EXPECT_EQ(outcome.code, timesOut ? 12002U : 12029U);
  EXPECT_GE(taken, milliseconds(250));
  EXPECT_EQ(taken < milliseconds(1400), timesOut);
}

TEST_F(HttpFailures, TimesOutWhileSending) {
  const RawServer server([](Peer& peer) {
    peer.readHead();
    std::this_thread::sleep_for(milliseconds(3000));
  });
  HttpCall call = callTo(server.address());
  call.sendTimeout = 300;
  call.body = std::string(50'000'000, 'x');
  HttpOutcome outcome;
  const milliseconds taken = timeOf(call, outcome);
  EXPECT_PRED2(matches, outcome.code, expectations().http.sendTimeout);
  EXPECT_GE(taken, milliseconds(250));
  EXPECT_LT(taken, milliseconds(2500));
}

TEST_F(HttpFailures, TimesOutWaitingForAnAnswer) {
  const RawServer server([](Peer& peer) { peer.waitForClose(); });
  HttpCall call = callTo(server.address());
  call.receiveTimeout = 300;
  HttpOutcome outcome;
  const milliseconds taken = timeOf(call, outcome);
  EXPECT_EQ(outcome.code, expectations().http.answerTimeout);
  EXPECT_GE(taken, milliseconds(250));
  EXPECT_LT(taken, milliseconds(3000));
}

TEST_F(HttpFailures, TimesOutInTheBody) {
  const RawServer server([](Peer& peer) {
    peer.readRequest();
    peer.write("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n<b/>");
    peer.waitForClose();
  });
  HttpCall call = callTo(server.address());
  call.receiveTimeout = 300;
  const HttpOutcome outcome = run(call);
  EXPECT_EQ(outcome.code, 0U);
  EXPECT_EQ(outcome.body, expectations().http.keepsBlocksCutShort ? "<b/>" : "");
  EXPECT_FALSE(outcome.bodyIsWhole);
}

TEST_F(HttpFailures, GivesASlowAnswerTheTimeItNeedsWhileItKeepsComing) {
  const RawServer server([](Peer& peer) {
    peer.readRequest();
    peer.write("HTTP/1.1 200 OK\r\nContent-Length: 8\r\n\r\n");
    for (int i = 0; i < 8; ++i) {
      std::this_thread::sleep_for(milliseconds(500));
      peer.write("x");
    }
  });
  HttpCall call = callTo(server.address());
  call.receiveTimeout = 3'000;
  EXPECT_TRUE(run(call).bodyIsWhole);
}

TEST_F(HttpFailures, StaysUsableOnTheSameThreadAfterAFailure) {
  const RawServer server({[](Peer& peer) {
                            peer.waitForBytes();
                            peer.reset();
                          },
                          [](Peer& peer) {
                            peer.readRequest();
                            peer.write("HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\nx");
                          }});
  EXPECT_TRUE(expectations().http.isReset(callOn(server).code));
  EXPECT_EQ(callOn(server).body, "x");
}

TEST_F(HttpFailures, ExplainsACodeInOneSentenceWithALineEndWhereTheSystemHasAText) {
  for (const http::ErrorCode code : {12002U, 12004U, 12005U, 12007U, 12029U, 12030U, 12031U, 12037U,
                                     12038U, 12045U, 12152U, 12157U, 12175U}) {
    const std::wstring text = http::errorMessage(code);
    EXPECT_EQ(text.ends_with(L".\r\n"), expectations().http.hasText(code)) << code;
    EXPECT_EQ(text.empty(), !expectations().http.hasText(code)) << code;
  }
}

TEST_F(HttpFailures, HasNoTextForAnUnknownCode) {
  EXPECT_EQ(http::errorMessage(12345), L"");
}

}  // namespace
}  // namespace ktpnaips::test
