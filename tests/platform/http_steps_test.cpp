#include <gtest/gtest.h>
#include <ktpnaips/platform/http.h>

#include <chrono>
#include <cstddef>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/http_call.h"
#include "tests/support/platform_expectations.h"
#include "tests/support/raw_server.h"

namespace ktpnaips::test {
namespace {

class HttpSteps : public testing::Test {
 protected:
  static HttpOutcome callOn(const RawServer& server) {
    HttpCall call;
    call.route.connectTo = server.address();
    return run(call);
  }
  static HttpOutcome answeredWith(const std::string& answer) {
    const RawServer server(answering(answer));
    return callOn(server);
  }
  static std::string sentFor(const HttpCall& wanted) {
    std::promise<std::string> seen;
    const RawServer server([&seen](Peer& peer) {
      seen.set_value(peer.readRequest());
      peer.write("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    });
    HttpCall call = wanted;
    call.route.connectTo = server.address();
    EXPECT_EQ(run(call).code, 0U);
    return inOrder(seen.get_future().get());
  }

 private:
  NoProxies noProxies_;
};

TEST_F(HttpSteps, SendsExactlyTheRequestLineTheGivenHeadersAndTheLength) {
  EXPECT_EQ(sentFor({}),
            "POST /naips/service HTTP/1.1\r\n"
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

TEST_F(HttpSteps, AddsNoHeaderOfItsOwnWhenNoneIsGiven) {
  std::promise<std::string> seen;
  const RawServer server([&seen](Peer& peer) {
    seen.set_value(peer.readRequest());
    peer.write("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
  });
  http::Exchange exchange;
  exchange.openSession("agent");
  exchange.connect(L"naips.example", 80, {server.address(), L""});
  exchange.openRequest("POST", L"/", http::noFlags);
  EXPECT_EQ(exchange.send("x"), 0U);
  EXPECT_EQ(inOrder(seen.get_future().get()),
            "POST / HTTP/1.1\r\nContent-Length: 1\r\nHost: naips.example\r\n"
            "User-Agent: agent\r\n\r\nx");
}

TEST_F(HttpSteps, ReplacesAHeaderThatIsAddedAgain) {
  std::promise<std::string> seen;
  const RawServer server([&seen](Peer& peer) {
    seen.set_value(peer.readRequest());
    peer.write("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
  });
  http::Exchange exchange;
  HttpCall call;
  call.route.connectTo = server.address();
  open(exchange, call);
  exchange.addHeaders("ABCDEFGHIJKLMNOPQRSTUVWXYZ: capital\r\n");
  exchange.addHeaders("accept: text/xml\r\nabcdefghijklmnopqrstuvwxyz: small\r\n");
  EXPECT_EQ(exchange.send("x"), 0U);
  const std::string request = seen.get_future().get();
  EXPECT_NE(request.find("\r\naccept: text/xml\r\n"), std::string::npos);
  EXPECT_EQ(request.find("Accept: text/*"), std::string::npos);
  EXPECT_NE(request.find("\r\nabcdefghijklmnopqrstuvwxyz: small\r\n"), std::string::npos);
  EXPECT_EQ(request.find("capital"), std::string::npos);
}

TEST_F(HttpSteps, SendsABodyOfManyMegabytesWholeAndWithoutExpect) {
  HttpCall call;
  call.body = std::string(5'000'000, 'x');
  const std::string request = sentFor(call);
  EXPECT_EQ(request.find("Expect"), std::string::npos);
  EXPECT_EQ(request.substr(request.find("\r\n\r\n") + 4), call.body);
}

TEST_F(HttpSteps, SendsAnEmptyBodyWithLengthZero) {
  HttpCall call;
  call.body.clear();
  EXPECT_NE(sentFor(call).find("\r\nContent-Length: 0\r\n"), std::string::npos);
}

TEST_F(HttpSteps, NamesAPortInTheHostHeaderOnlyWhenItIsNotTheSchemesOwn) {
  HttpCall call;
  call.port = 8081;
  EXPECT_NE(sentFor(call).find("\r\nHost: naips.example:8081\r\n"), std::string::npos);
}

TEST_F(HttpSteps, SendsThePathAsItIsButForWhatCannotStandInARequestLine) {
  HttpCall call;
  call.path = L"/a/b?c=d&e";
  EXPECT_TRUE(sentFor(call).starts_with("POST /a/b?c=d&e HTTP/1.1\r\n"));
  call.path = L"/a b\r\n\u00e9";
  EXPECT_TRUE(sentFor(call).starts_with("POST /a%20b%0D%0A%C3%A9 HTTP/1.1\r\n"));
}

TEST_F(HttpSteps, ReturnsStatusContentTypeRawHeadersAndBody) {
  const HttpOutcome outcome = answeredWith(
      "HTTP/1.1 200 OK\r\nContent-Type: text/xml;charset=UTF-8\r\nContent-Length: "
      "4\r\n\r\n<b/>");
  EXPECT_EQ(outcome.code, 0U);
  EXPECT_EQ(outcome.status, "200");
  EXPECT_EQ(outcome.contentType, "text/xml;charset=UTF-8");
  EXPECT_EQ(outcome.rawHeaders,
            "HTTP/1.1 200 OK\r\nContent-Type: text/xml;charset=UTF-8\r\n"
            "Content-Length: 4\r\n\r\n");
  EXPECT_EQ(outcome.body, "<b/>");
  EXPECT_TRUE(outcome.bodyIsWhole);
}

TEST_F(HttpSteps, ReturnsAContentTypeWithoutTheSpacesAroundIt) {
  const HttpOutcome outcome =
      answeredWith("HTTP/1.1 200 OK\r\nContent-Type:  text/xml \r\nContent-Length: 0\r\n\r\n");
  EXPECT_EQ(outcome.contentType, "text/xml");
}

TEST_F(HttpSteps, ReturnsNoContentTypeWhenNoneWasSent) {
  EXPECT_EQ(answeredWith("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n").contentType, std::nullopt);
}

TEST_F(HttpSteps, ReadsAChunkedBodyAndLeavesItsTrailersOut) {
  const HttpOutcome outcome = answeredWith(
      "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
      "2\r\n<b\r\n2\r\n/>\r\n0\r\nX-Trailer: 1\r\n\r\n");
  EXPECT_EQ(outcome.body, "<b/>");
  EXPECT_TRUE(outcome.bodyIsWhole);
  EXPECT_EQ(outcome.rawHeaders, "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
}

TEST_F(HttpSteps, TakesNoTrailerForAnotherAnswer) {
  const HttpOutcome outcome = answeredWith(
      "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
      "4\r\n<b/>\r\n0\r\nHTTP/1.1 500 Oops: 1\r\n\r\n");
  EXPECT_EQ(outcome.status, "200");
  EXPECT_EQ(outcome.body, "<b/>");
  EXPECT_TRUE(outcome.bodyIsWhole);
  EXPECT_EQ(outcome.rawHeaders, "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
}

TEST_F(HttpSteps, ReadsABodyThatEndsWithTheConnection) {
  const HttpOutcome outcome = answeredWith("HTTP/1.0 200 OK\r\n\r\n<b/>");
  EXPECT_EQ(outcome.body, "<b/>");
  EXPECT_TRUE(outcome.bodyIsWhole);
}

TEST_F(HttpSteps, PassesOverProvisionalAnswers) {
  const HttpOutcome outcome =
      answeredWith("HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 500 Oops\r\nContent-Length: 1\r\n\r\nx");
  EXPECT_EQ(outcome.status, "500");
  EXPECT_EQ(outcome.rawHeaders, "HTTP/1.1 500 Oops\r\nContent-Length: 1\r\n\r\n");
}

TEST_F(HttpSteps, TakesEarlyHintsForTheAnswerWhereTheSystemDoes) {
  const HttpOutcome outcome = answeredWith(
      "HTTP/1.1 103 Early Hints\r\nContent-Type: a/b\r\n\r\n"
      "HTTP/1.1 500 Oops\r\nContent-Length: 1\r\n\r\nx");
  EXPECT_EQ(outcome.status, expectations().http.passesOverEarlyHints ? "500" : "103");
}

TEST_F(HttpSteps, PutsHeadersTogetherThatComeByteByByte) {
  const RawServer server([](Peer& peer) {
    peer.readRequest();
    for (const char letter : std::string("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nhi")) {
      peer.write({&letter, 1});
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  });
  const HttpOutcome outcome = callOn(server);
  EXPECT_EQ(outcome.rawHeaders, "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\n");
  EXPECT_EQ(outcome.body, "hi");
}

TEST_F(HttpSteps, GivesRawHeadersOf1023BytesAndNoneOfMore) {
  const std::string start = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\nX-Fill: ";
  const std::string end = "\r\n\r\n";
  const std::string fill(1023 - start.size() - end.size(), 'x');
  EXPECT_EQ(answeredWith(start + fill + end).rawHeaders, start + fill + end);
  EXPECT_EQ(answeredWith(start + fill + 'x' + end).rawHeaders, std::nullopt);
  const HttpOutcome longer = answeredWith(start + std::string(5000, 'x') + end);
  EXPECT_EQ(longer.rawHeaders, std::nullopt);
  EXPECT_EQ(longer.status, "200");
}

TEST_F(HttpSteps, FollowsARedirectWhereTheSystemDoes) {
  const RawServer server(
      {answering("HTTP/1.1 302 Elsewhere\r\nLocation: /elsewhere\r\nContent-Length: 0\r\n"
                 "Connection: close\r\n\r\n"),
       answering("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n")});
  const bool follows = expectations().http.followsRedirects;
  EXPECT_EQ(callOn(server).status, follows ? "200" : "302");
  EXPECT_EQ(server.connections(), follows ? 2 : 1);
}

TEST_F(HttpSteps, TakesA401AsAnAnswer) {
  const RawServer server(answering(
      "HTTP/1.1 401 No\r\nWWW-Authenticate: Basic realm=\"x\"\r\nContent-Length: 0\r\n\r\n"));
  EXPECT_EQ(callOn(server).status, "401");
  EXPECT_EQ(server.connections(), 1);
}

TEST_F(HttpSteps, UsesAConnectionForEachCallUnlessTheSystemKeepsThem) {
  const RawServer server([](Peer& peer) {
    for (;;) {
      peer.readRequest();
      peer.write("HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\nx");
    }
  });
  EXPECT_EQ(callOn(server).body, "x");
  EXPECT_EQ(callOn(server).body, "x");
  EXPECT_EQ(server.connections(), expectations().http.keepsConnections ? 1 : 2);
}

TEST_F(HttpSteps, ClosesTheConnectionWhenTheAnswerHasBeenReadUnlessTheSystemKeepsIt) {
  std::promise<bool> closed;
  const RawServer server([&closed](Peer& peer) {
    peer.readRequest();
    peer.write("HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\nx");
    closed.set_value(peer.waitForClose(std::chrono::seconds(2)));
  });
  callOn(server);
  EXPECT_EQ(closed.get_future().get(), !expectations().http.keepsConnections);
}

TEST_F(HttpSteps, ClosesTheConnectionWhenTheExchangeIsGivenUp) {
  std::promise<bool> closed;
  const RawServer server([&closed](Peer& peer) {
    peer.readRequest();
    peer.write("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nx");
    closed.set_value(peer.waitForClose(std::chrono::seconds(5)));
  });
  {
    HttpCall call;
    call.route.connectTo = server.address();
    http::Exchange exchange;
    open(exchange, call);
    EXPECT_EQ(exchange.send("x"), 0U);
  }
  EXPECT_TRUE(closed.get_future().get());
}

TEST_F(HttpSteps, CarriesTwoExchangesOfOneThreadAtATime) {
  const RawServer first(answering("HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\n1"));
  const RawServer second(answering("HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\n2"));
  HttpCall call;
  call.route.connectTo = first.address();
  http::Exchange exchange;
  open(exchange, call);
  EXPECT_EQ(exchange.send("x"), 0U);
  EXPECT_EQ(callOn(second).body, "2");
  char read = 0;
  EXPECT_EQ(exchange.read(&read, 1), 1U);
  EXPECT_EQ(read, '1');
}

TEST_F(HttpSteps, HandsOver20MegabytesInSmallBlocksUnchanged) {
  std::string body(20'000'000, ' ');
  for (std::size_t i = 0; i < body.size(); ++i) body[i] = static_cast<char>('!' + i * i % 90);
  const RawServer server(answering("HTTP/1.1 200 OK\r\nContent-Length: 20000000\r\n\r\n" + body));
  const HttpOutcome outcome = callOn(server);
  EXPECT_TRUE(outcome.bodyIsWhole);
  EXPECT_TRUE(outcome.body == body);
}

TEST_F(HttpSteps, HoldsBackAServerWhoseAnswerIsNotReadUnlessTheSystemReadsOn) {
  std::promise<bool> finished;
  const RawServer server([&finished](Peer& peer) {
    peer.readRequest();
    peer.write("HTTP/1.1 200 OK\r\nContent-Length: 30000000\r\n\r\n");
    try {
      peer.write(std::string(30'000'000, 'x'));
      finished.set_value(true);
    } catch (const std::exception&) {
      finished.set_value(false);
    }
  });
  {
    HttpCall call;
    call.route.connectTo = server.address();
    http::Exchange exchange;
    open(exchange, call);
    EXPECT_EQ(exchange.send("x"), 0U);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
  }
  EXPECT_EQ(finished.get_future().get(), expectations().http.readsOnWhenGivenUp);
}

TEST_F(HttpSteps, ServesManyThreadsAtATime) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i)
    threads.emplace_back([i] {
      const std::string body = std::to_string(i);
      for (int round = 0; round < 3; ++round)
        EXPECT_EQ(answeredWith("HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\n" + body).body, body);
    });
  for (std::thread& thread : threads) thread.join();
}

TEST_F(HttpSteps, ReturnsAnEarlyAnswerThatComesBeforeTheBodyIsSentUnlessTheSystemMissesIt) {
  const RawServer server([](Peer& peer) {
    peer.readHead();
    peer.write("HTTP/1.1 413 Too much\r\nContent-Length: 1\r\nConnection: close\r\n\r\nx");
    peer.waitForClose(std::chrono::milliseconds(500));
  });
  HttpCall call;
  call.route.connectTo = server.address();
  call.body = std::string(30'000'000, 'x');
  const HttpOutcome outcome = run(call);
  if (expectations().http.mayMissEarlyAnswers && outcome.status.empty()) return;
  EXPECT_EQ(outcome.status, "413");
  EXPECT_EQ(outcome.body, "x");
}

}  // namespace
}  // namespace ktpnaips::test
