#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/password.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/platform/proxy_log_in.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/failure_recorder.h"
#include "tests/support/proxy_settings.h"
#include "tests/support/raw_server.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using std::chrono::microseconds;

/// What was seen of a call, kept beyond it.
struct Seen {
  std::wstring requestName;
  std::wstring url;
  std::size_t bytesSent;
  std::size_t bytesReceived;
  std::string status;
  std::string failure;
  microseconds untilAnswer;
  microseconds untilEnd;
  std::string request;
  std::string answer;
  std::thread::id thread;
};

class ObservedCall : public testing::Test {
 protected:
  ObservedCall() {
    setCallObserver([this](const ServiceCall& call) {
      seen_.push_back({std::wstring(call.requestName), std::wstring(call.url), call.bytesSent,
                       call.bytesReceived, call.status, std::string(call.failure), call.untilAnswer,
                       call.untilEnd, call.request(), call.answer(), std::this_thread::get_id()});
    });
    NAIPSConfig config;
    config.Mode(1);
    config.UseProxy(true);
    config.UserName(L"pilot1");
    config.Password(L"se\"cret");
  }
  ~ObservedCall() override { setCallObserver({}); }

  /// A log-in at this address.
  static std::shared_ptr<AuthenticateRsp> logIn(const std::wstring& address) {
    Deployment deployment;
    deployment.proxyHost = L"relay.test";
    deployment.connectTo = address;
    const test::ScopedDeployment scoped(deployment);
    return AuthenticateRqs().submit();
  }

  /// A log-in that is answered so.
  static std::shared_ptr<AuthenticateRsp> logInAt(const std::string& status,
                                                  const std::string& body) {
    const test::RawServer server([&](test::Peer& peer) {
      peer.readRequest();
      peer.write("HTTP/1.1 " + status + "\r\nContent-Type: text/xml\r\nContent-Length: " +
                 std::to_string(body.size()) + "\r\n\r\n" + body);
    });
    return logIn(server.address());
  }

  const std::vector<Seen>& seen() const { return seen_; }

 private:
  test::FreshSettings settings_;
  std::vector<Seen> seen_;
};

std::string withHiddenPassword(std::string document) {
  const std::string shown = "password=\"se&quot;cret\"";
  const auto at = document.find(shown);
  EXPECT_NE(at, std::string::npos) << document;
  return document.replace(at, shown.size(), "password=\"********\"");
}

TEST_F(ObservedCall, IsToldWithItsFiguresAndDocuments) {
  const std::string answer = test::success("<n:name>Jane</n:name>");
  const auto before = std::chrono::steady_clock::now();
  EXPECT_EQ(logInAt("200 OK", answer)->Name(), L"Jane");
  const auto elapsed = std::chrono::steady_clock::now() - before;

  ASSERT_EQ(seen().size(), 1U);
  const Seen& call = seen().front();
  const std::string document = requestDocument(AuthenticateRqs());
  EXPECT_EQ(call.requestName, L"authenticate-rqs");
  EXPECT_EQ(call.url, L"http://relay.test/naips/account-service");
  EXPECT_EQ(call.bytesSent, document.size());
  EXPECT_EQ(call.bytesReceived, answer.size());
  EXPECT_EQ(call.status, "200");
  EXPECT_EQ(call.failure, "");
  EXPECT_EQ(call.request, withHiddenPassword(document));
  EXPECT_EQ(call.answer, answer);
  EXPECT_EQ(call.thread, std::this_thread::get_id());
  EXPECT_GT(call.untilAnswer, microseconds(0));
  EXPECT_GE(call.untilEnd, call.untilAnswer);
  EXPECT_LE(call.untilEnd, elapsed);
}

TEST_F(ObservedCall, CountsTheBodyWithoutTheRawHeadersInFrontOfIt) {
  EXPECT_TRUE(logInAt("500 Broken", "<b password='x'/>")->Error());
  ASSERT_EQ(seen().size(), 1U);
  EXPECT_EQ(seen().front().status, "500");
  EXPECT_EQ(seen().front().bytesReceived, 17U);
  EXPECT_EQ(seen().front().answer, "<b password='********'/>");
  EXPECT_EQ(seen().front().failure, "");
}

TEST_F(ObservedCall, ThatNothingAnswersHasAFailureInPlaceOfAStatus) {
  EXPECT_TRUE(logIn(L"127.0.0.1:" + std::to_wstring(test::unusedPort()))->Error());
  ASSERT_EQ(seen().size(), 1U);
  const Seen& call = seen().front();
  EXPECT_EQ(call.status, "");
  EXPECT_EQ(call.answer, "");
  EXPECT_EQ(call.bytesReceived, 0U);
  EXPECT_TRUE(call.failure.starts_with("HttpSendRequest call failed: ")) << call.failure;
  EXPECT_EQ(call.untilAnswer, microseconds(0));
  EXPECT_GT(call.untilEnd, microseconds(0));
}

TEST_F(ObservedCall, HasTheContentTypeOfItsAnswer) {
  std::string contentType;
  setCallObserver([&](const ServiceCall& call) { contentType = call.contentType; });
  logInAt("200 OK", test::success(""));
  EXPECT_EQ(contentType, "text/xml");
}

/// What an observer is told when the first byte is about to go out.
class SentCall : public ObservedCall {
 protected:
  SentCall() {
    setSendingObserver([this](const ServiceCall& call) {
      sent_.push_back({std::wstring(call.requestName), std::wstring(call.url), call.bytesSent, 0,
                       call.status, std::string(call.failure), call.untilAnswer, call.untilEnd,
                       call.request(), call.answer(), std::this_thread::get_id()});
      changes_ = call.changes;
      isTold_ = true;
    });
  }
  ~SentCall() override { setSendingObserver({}); }

  std::vector<Seen> sent_;
  bool changes_ = false;
  std::atomic<bool> isTold_ = false;
};

TEST_F(SentCall, IsToldBeforeTheServiceHasIt) {
  std::atomic<bool> wasTold = false;
  const test::RawServer server([&](test::Peer& peer) {
    peer.waitForBytes();
    wasTold = isTold_.load();
    peer.readRequest();
  });
  EXPECT_TRUE(logIn(server.address())->Error());
  EXPECT_TRUE(wasTold);
  ASSERT_EQ(sent_.size(), 1U);
  const Seen& call = sent_.front();
  const std::string document = requestDocument(AuthenticateRqs());
  EXPECT_EQ(call.requestName, L"authenticate-rqs");
  EXPECT_EQ(call.url, L"http://relay.test/naips/account-service");
  EXPECT_EQ(call.bytesSent, document.size());
  EXPECT_EQ(call.request, withHiddenPassword(document));
  EXPECT_EQ(call.status, "");
  EXPECT_EQ(call.answer, "");
  EXPECT_EQ(call.failure, "");
  EXPECT_EQ(call.untilAnswer, microseconds(0));
  EXPECT_EQ(call.untilEnd, microseconds(0));
  EXPECT_EQ(call.thread, std::this_thread::get_id());
  EXPECT_FALSE(changes_);
}

TEST_F(SentCall, IsSaidToChangeSomethingWhenItDoes) {
  const test::RawServer server([](test::Peer& peer) { peer.readRequest(); });
  Deployment deployment;
  deployment.connectTo = server.address();
  const test::ScopedDeployment scoped(deployment);
  ChangePasswordRqs().submit();
  EXPECT_TRUE(changes_);
  GetGroupAffiliationRqs().submit();
  EXPECT_FALSE(changes_);
}

TEST_F(SentCall, IsToldAgainWhenAProxyWantsAnAccountFirst) {
  const test::RawServer proxy({[](test::Peer& peer) {
                                 peer.readRequest();
                                 peer.write(
                                     "HTTP/1.1 407 Log in\r\nProxy-Authenticate: Basic "
                                     "realm=\"p\"\r\nContent-Length: 0\r\nConnection: "
                                     "close\r\n\r\n");
                               },
                               [](test::Peer& peer) {
                                 peer.readRequest();
                                 peer.write(
                                     "HTTP/1.1 500 No\r\nContent-Length: 0\r\nConnection: "
                                     "close\r\n\r\n");
                               }});
  const test::ScopedProxy use("127.0.0.1:" + std::to_string(proxy.port()));
  std::size_t toldBefore = 0;
  setProxyLogIn([&](std::wstring_view, int) {
    toldBefore = sent_.size();
    return ProxyCredentials{L"Aladdin", L"open sesame"};
  });
  logIn({});
  setProxyLogIn({});
  EXPECT_EQ(toldBefore, 1U);
  EXPECT_EQ(sent_.size(), 2U);
}

TEST_F(SentCall, IsToldWithoutAnObserverOfItsEnd) {
  setCallObserver({});
  logInAt("200 OK", test::success(""));
  EXPECT_EQ(sent_.size(), 1U);
  setSendingObserver({});
  logInAt("200 OK", test::success(""));
  EXPECT_EQ(sent_.size(), 1U);
}

TEST_F(SentCall, IsWorthAsMuchWhenTheObserverThrows) {
  setSendingObserver([](const ServiceCall&) { throw std::runtime_error("disk is full"); });
  const test::FailureRecorder failures;
  EXPECT_FALSE(logInAt("200 OK", test::success(""))->Error());
  EXPECT_EQ(failures.reports(),
            test::Reports{L"Error 51 (Internal error: disk is full) in procedure winInetSend of "
                          L"Module winInet"});
}

TEST_F(ObservedCall, IsNotToldOnceTheObserverIsRemoved) {
  setCallObserver({});
  EXPECT_FALSE(logInAt("200 OK", test::success("<n:name>Jane</n:name>"))->Error());
  EXPECT_EQ(seen().size(), 0U);
}

TEST_F(ObservedCall, IsWorthAsMuchWhenTheObserverThrows) {
  setCallObserver([](const ServiceCall&) { throw std::runtime_error("disk is full"); });
  const test::FailureRecorder failures;
  EXPECT_EQ(logInAt("200 OK", test::success("<n:name>Jane</n:name>"))->Name(), L"Jane");
  EXPECT_EQ(failures.reports(),
            test::Reports{L"Error 51 (Internal error: disk is full) in procedure winInetSend of "
                          L"Module winInet"});
}

}  // namespace
}  // namespace ktpnaips
