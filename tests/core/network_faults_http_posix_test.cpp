#include "tests/support/network_faults.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/core/network_faults.h"
#include "tests/support/platform_expectations.h"
#include "tests/support/raw_server.h"

namespace ktpnaips::test {
namespace {

class NetworkFaults : public testing::TestWithParam<NetworkFault> {};

INSTANTIATE_TEST_SUITE_P(Http, NetworkFaults, testing::ValuesIn(networkFaults()), nameOfFault);

TEST_P(NetworkFaults, ShowTheHostWhatHappened) {
  const RawServer server(GetParam().misbehave);
  const SubmitsTo there(server.address(), GetParam().receiveLimit);
  expectSeen(fileFlightPlan(), GetParam().expected());
}

TEST_P(NetworkFaults, LetAFilingReachTheServerOnceAtMost) {
  const RawServer server({[](Peer& peer) {
                            peer.readRequest();
                            peer.write(goodAnswer());
                          },
                          GetParam().misbehave});
  const SubmitsTo there(server.address(), GetParam().receiveLimit);
  EXPECT_FALSE(fileFlightPlan().isError);
  fileFlightPlan();
  EXPECT_GE(server.connections(), 2);
  EXPECT_LE(server.connections(), 2 + expectations().http.mostRepetitions);
}

}  // namespace
}  // namespace ktpnaips::test
