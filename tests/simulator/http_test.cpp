#include <gmock/gmock.h>

#include <thread>
#include <vector>

#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

class Http : public ServiceTest {
 protected:
  const std::string login = envelope(request("authenticate-rqs", ""));
};

TEST_F(Http, AnswersOnTheServicePathsWithAndWithoutPrefix) {
  for (const char* path : {"/naips/account-service", "/account-service",
                           "http://naips.example:8080/naips/account-service"}) {
    const Reply reply = post(path, login);
    EXPECT_EQ(reply.status(), 200) << path;
    EXPECT_THAT(reply.body(), HasSubstr("status=\"SUCCESS\"")) << path;
  }
}

TEST_F(Http, KnowsAllFiveServices) {
  for (const char* path :
       {"/naips/reference-service", "/naips/account-service", "/naips/briefing-service",
        "/naips/flight-notification-service", "/naips/met-service"}) {
    EXPECT_EQ(post(path, login).status(), 200) << path;
  }
}

TEST_F(Http, FindsNothingElsewhere) {
  for (const char* path : {"/", "/naips", "/naips/", "/naips/account-service/",
                           "/other/account-"
                           "service",
                           "/naips/ACCOUNT-SERVICE"}) {
    EXPECT_EQ(post(path, login).status(), 404) << path;
  }
}

TEST_F(Http, AllowsPostOnly) {
  const Reply reply = roundTrip(service().port(), httpRequest("GET", "/naips/account-service", ""));
  EXPECT_EQ(reply.status(), 405);
  EXPECT_THAT(reply.head(), HasSubstr("\r\nAllow: POST"));
}

TEST_F(Http, TakesXmlOnly) {
  const std::string bytes = httpRequest("POST", "/naips/account-service", login, "text/plain");
  EXPECT_EQ(roundTrip(service().port(), bytes).status(), 415);
}

TEST_F(Http, AnswersXmlWithItsLength) {
  const Reply reply = post("/naips/account-service", login);
  EXPECT_THAT(reply.head(), HasSubstr("\r\nContent-Type: text/xml; charset=utf-8\r\n"));
  EXPECT_THAT(reply.head(),
              HasSubstr("\r\nContent-Length: " + std::to_string(reply.body().size()) + "\r\n"));
  EXPECT_THAT(reply.head(), EndsWith("\r\nConnection: close"));
}

TEST_F(Http, KeepsAConnectionUntilItIsAskedToClose) {
  std::string first = httpRequest("POST", "/naips/account-service", login);
  first.replace(first.find("close"), 5, "Keep-Alive");
  const std::string both = first + httpRequest("POST", "/naips/account-service", login);
  const Reply reply = roundTrip(service().port(), both);
  EXPECT_FALSE(reply.timedOut);
  EXPECT_THAT(reply.head(), EndsWith("\r\nConnection: keep-alive"));
  EXPECT_EQ(service().requestCount(), 2U);
  EXPECT_EQ(service().connectionCount(), 1U);
}

TEST_F(Http, SaysContinueWhenItIsAsked) {
  std::string bytes = httpRequest("POST", "/naips/account-service", login);
  bytes.insert(bytes.find("Connection"), "Expect: 100-continue\r\n");
  const Reply reply = roundTrip(service().port(), bytes);
  EXPECT_EQ(reply.status(), 100);
  EXPECT_THAT(reply.body(), HasSubstr("HTTP/1.1 200 OK\r\n"));
}

TEST_F(Http, RefusesWhatIsNoHttp) {
  EXPECT_EQ(roundTrip(service().port(), "nonsense\r\n\r\n").status(), 400);
}

TEST_F(Http, RefusesAnEndlessRequest) {
  std::string bytes = "POST /naips/account-service HTTP/1.1\r\nContent-Length: 100000000\r\n\r\n";
  EXPECT_EQ(roundTrip(service().port(), bytes).status(), 413);
}

TEST_F(Http, SpeaksHttpAndTlsOnOnePort) {
  const Reply plain = post("/naips/account-service", login);
  const Reply secure = postTls("/naips/account-service", login);
  EXPECT_EQ(plain.bytes, secure.bytes);
  ASSERT_EQ(service().requests().size(), 2U);
  EXPECT_FALSE(service().requests()[0].secure);
  EXPECT_TRUE(service().requests()[1].secure);
}

TEST_F(Http, ShowsTheRequestsItReceived) {
  post("/naips/account-service?x=1", login);
  const std::vector<sim::ReceivedRequest> requests = service().requests();
  ASSERT_EQ(requests.size(), 1U);
  EXPECT_EQ(requests[0].method, "POST");
  EXPECT_EQ(requests[0].target, "/naips/account-service?x=1");
  EXPECT_EQ(requests[0].body, login);
  EXPECT_EQ(requests[0].header("content-TYPE"), "text/xml; charset=utf-8");
  EXPECT_EQ(requests[0].header("Absent"), "");
}

TEST_F(Http, ForgetsOldRequestsButCountsThem) {
  options.keptRequests = 2;
  for (const char* path : {"/a", "/b", "/c"}) {
    post(path, "");
  }
  ASSERT_EQ(service().requests().size(), 2U);
  EXPECT_EQ(service().requests()[0].target, "/b");
  EXPECT_EQ(service().requestCount(), 3U);
}

TEST_F(Http, AnswersManyClientsAtOnce) {
  const std::string bytes = httpRequest("POST", "/naips/account-service", login);
  const std::uint16_t port = service().port();
  const std::filesystem::path issuers = service().caFile();
  std::vector<std::thread> clients;
  for (int i = 0; i < 8; ++i) {
    clients.emplace_back([&] {
      for (int n = 0; n < 10; ++n) {
        EXPECT_EQ(roundTrip(port, bytes).status(), 200);
        EXPECT_EQ(roundTrip(port, bytes, issuers).status(), 200);
      }
    });
  }
  for (std::thread& client : clients) {
    client.join();
  }
  EXPECT_EQ(service().requestCount(), 160U);
}

TEST_F(Http, ClosesPortAndConnectionsWhenStopped) {
  const std::uint16_t port = service().port();
  service().setFault("stall-body");
  std::thread client([&] {
    const Reply reply = roundTrip(port, httpRequest("POST", "/naips/account-service", login));
    EXPECT_FALSE(reply.timedOut);
  });
  while (service().requestCount() == 0) {
    std::this_thread::yield();
  }
  service().stop();
  client.join();
  EXPECT_FALSE(roundTrip(port, "").connected);
}

TEST_F(Http, SaysWhenThePortIsTaken) {
  sim::Options second = options;
  second.port = service().port();
  try {
    sim::Service another(second);
    FAIL() << "both listen";
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(),
                HasSubstr("cannot listen on 127.0.0.1:" + std::to_string(second.port)));
    EXPECT_THAT(error.what(), HasSubstr("Choose another port"));
  }
}

}  // namespace
}  // namespace simtest
