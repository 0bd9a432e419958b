#include "tests/support/network_faults.h"

#include <gtest/gtest.h>

#include "tests/core/network_faults.h"
#include "tests/support/raw_server.h"

namespace ktpnaips::test {
namespace {

class NetworkFaults : public testing::TestWithParam<NetworkFault> {};

INSTANTIATE_TEST_SUITE_P(Http, NetworkFaults, testing::ValuesIn(networkFaults()), nameOfFault);

TEST_P(NetworkFaults, ShowTheHostWhatHappened) {
  const RawServer server(GetParam().misbehave);
  const SubmitsTo there(server.address(), GetParam().receiveLimit);
  const SubmitOutcome outcome = fileFlightPlan();
  expectSeen(outcome, GetParam().expected());
  EXPECT_EQ(outcome.outcome, outcome.isError ? Outcome::inDoubt : Outcome::success);
}

}  // namespace
}  // namespace ktpnaips::test
