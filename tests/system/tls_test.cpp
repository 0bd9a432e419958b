#include "tests/support/http_call.h"
#include "tests/support/platform_expectations.h"
#include "tests/system/simulator.h"

#include <gtest/gtest.h>

#include <string>

using namespace ktpnaips;

namespace {

/// A call over HTTPS to the service with the certificate, trusting the authority of the valid one.
test::HttpOutcome callTo(const char* certificate, std::uint32_t flags = test::lenientTls) {
  simulator::use();
  test::HttpCall call;
  call.port = 443;
  call.flags = flags;
  call.route = {simulator::address(certificate), simulator::authorityFile()};
  return run(call);
}

class LenientTls : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Certificates, LenientTls,
                         testing::Values("", "EXPIRED", "NOT_YET_VALID", "WRONG_NAME"),
                         [](const auto& each) {
                           std::string name = *each.param == '\0' ? "VALID" : each.param;
                           std::erase(name, '_');
                           return name;
                         });

TEST_P(LenientTls, TakesACertificateWhoseDateOrNameIsWrong) {
  const test::HttpOutcome outcome = callTo(GetParam());
  EXPECT_EQ(outcome.code, 0U);
  EXPECT_FALSE(outcome.status.empty());
}

TEST(Tls, RefusesACertificateOfAnUnknownIssuer) {
  const test::HttpOutcome outcome = callTo("UNKNOWN_ISSUER");
  EXPECT_EQ(outcome.code, test::expectations().http.unknownIssuer);
  EXPECT_EQ(outcome.status, "");
}

}  // namespace
