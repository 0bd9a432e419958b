#include <ktpnaips/core/transport.h>

#include <gtest/gtest.h>

#include <chrono>
#include <iostream>
#include <string>
#include <thread>

#include "tests/support/network_faults.h"
#include "tests/support/raw_server.h"
#include "tests/support/settings.h"

namespace ktpnaips::test {
namespace {

using std::chrono::duration;

/// The time limits as they are, within two seconds; they take as long as they say.
class TimeOuts : public testing::Test {
 protected:
  /// Posts and expects the time-out after so many seconds.
  static void expectTimeOut(const std::wstring& address, const std::string& body, double seconds) {
    Deployment deployment;
    deployment.connectTo = address;
    const ScopedDeployment there(deployment);
    const auto start = std::chrono::steady_clock::now();
    const winInet::Answer answer = winInet::winInetSend(L"http://naips.example/x", L"", body);
    const double taken = duration<double>(std::chrono::steady_clock::now() - start).count();
    ASSERT_TRUE(answer.failure);
    EXPECT_EQ(answer.failure->code, 12002U);
    EXPECT_NEAR(taken, seconds, 2.0);
    std::cout << "after " << taken << " s: " << text::toUtf8(answer.failure->message) << '\n';
  }
};

TEST_F(TimeOuts, EndAConnectionThatNobodyTakesAfterTenSeconds) {
  const FullListener listener;
  expectTimeOut(listener.address(), "<a/>", 10);
}

TEST_F(TimeOuts, EndARequestThatNobodyReadsAfterThirtySeconds) {
  const RawServer server([](Peer&) { std::this_thread::sleep_for(std::chrono::seconds(40)); });
  expectTimeOut(server.address(), std::string(12'000'000, 'x'), 30);
}

TEST_F(TimeOuts, EndASilenceAfterSixtySeconds) {
  const RawServer server([](Peer& peer) {
    peer.readRequest();
    peer.waitForClose(std::chrono::seconds(90));
  });
  expectTimeOut(server.address(), "<a/>", 60);
}

}  // namespace
}  // namespace ktpnaips::test
