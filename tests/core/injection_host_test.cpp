#include <ktpnaips/core/deployment.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/network_faults.h"
#include "tests/support/raw_server.h"
#include "tests/support/settings.h"

namespace ktpnaips::test {
namespace {

TEST(InjectionByTheHostName, SendsNothing) {
  for (const std::wstring& host :
       {std::wstring(L"naips.example\r\nX-Evil: 1"), std::wstring(L"naips.example\0.other", 20),
        std::wstring(L"user:password@naips.example"), std::wstring(L"naips.example?x"),
        std::wstring(L"naips.example#x"), std::wstring(L"naips.example other")}) {
    const RawServer server([](Peer& peer) { peer.waitForClose(); });
    const SubmitsTo there(server.address(), 20'000);
    Deployment deployment = Deployment::current();
    deployment.proxyHost = host;
    const ScopedDeployment hostile(deployment);
    const SubmitOutcome outcome = fileFlightPlan();
    EXPECT_TRUE(outcome.isError);
    EXPECT_NE(outcome.errorText.find(L"  Dec: 12007\t"), std::wstring::npos)
        << text::toUtf8(outcome.errorText);
    EXPECT_EQ(server.connections(), 0);
  }
}

}  // namespace
}  // namespace ktpnaips::test
