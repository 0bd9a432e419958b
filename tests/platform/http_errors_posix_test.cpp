#include <gtest/gtest.h>
#include <ktpnaips/platform/http.h>

#include <string>
#include <thread>

#include "tests/support/http_call.h"

namespace ktpnaips::test {
namespace {

TEST(HttpErrors, ExplainsAWrongParameterAndNoSuccess) {
  EXPECT_TRUE(http::errorMessage(87).ends_with(L".\r\n"));
  EXPECT_EQ(http::errorMessage(0), L"");
}

TEST(HttpErrors, AddsWhatIsKnownAboutTheThreadsLastFailureToItsText) {
  const NoProxies noProxies;
  HttpCall call;
  call.host = L"naips.invalid";
  run(call);
  EXPECT_NE(http::errorMessage(12007).find(L"naips.invalid"), std::wstring::npos);
  EXPECT_EQ(http::errorMessage(12029).find(L"naips.invalid"), std::wstring::npos);
  std::thread([] {
    EXPECT_EQ(http::errorMessage(12007).find(L"naips.invalid"), std::wstring::npos);
  }).join();
}

}  // namespace
}  // namespace ktpnaips::test
