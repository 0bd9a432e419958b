#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/notification/filing.h>

#include <gtest/gtest.h>

#include "tests/support/network_faults.h"
#include "tests/support/raw_server.h"

namespace ktpnaips {
namespace {

/// Windows tells before it tries.
TEST(SendingObserver, IsNotToldOfACallThatReachesNobody) {
  bool isTold = false;
  setSendingObserver([&](const ServiceCall&) { isTold = true; });
  {
    const test::SubmitsTo there(L"127.0.0.1:" + std::to_wstring(test::unusedPort()), 20'000);
    EXPECT_EQ(SubmitICAOFlightNotifRqs().submit()->outcome(), Outcome::notSent);
  }
  setSendingObserver({});
  EXPECT_FALSE(isTold);
}

}  // namespace
}  // namespace ktpnaips
