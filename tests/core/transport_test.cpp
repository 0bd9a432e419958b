#include <ktpnaips/core/transport.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "tests/support/failure_recorder.h"
#include "tests/support/platform_expectations.h"

namespace ktpnaips {
namespace {

struct UrlParts {
  std::wstring scheme = L"old scheme";
  std::wstring host = L"old host";
  std::wstring path = L"old path";
};

UrlParts split(std::wstring_view url) {
  UrlParts parts;
  winInet::splitURL(url, parts.scheme, parts.host, parts.path);
  return parts;
}

void expectParts(std::wstring_view url, std::wstring_view scheme, std::wstring_view host,
                 std::wstring_view path) {
  const test::FailureRecorder recorder;
  const UrlParts parts = split(url);
  EXPECT_EQ(parts.scheme, scheme);
  EXPECT_EQ(parts.host, host);
  EXPECT_EQ(parts.path, path);
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST(TimeLimits, AreTenThirtyAndSixtySeconds) {
  EXPECT_EQ(winInet::timeLimits().connect, 10'000U);
  EXPECT_EQ(winInet::timeLimits().send, 30'000U);
  EXPECT_EQ(winInet::timeLimits().receive, 60'000U);
}

TEST(UrlSplitting, GivesSchemeHostAndPath) {
  expectParts(L"https://h/naips/account-service", L"https:", L"h", L"/naips/account-service");
}

TEST(UrlSplitting, KeepsAPortInTheHost) {
  expectParts(L"http://h:8080/reference-service", L"http:", L"h:8080", L"/reference-service");
}

TEST(UrlSplitting, GivesASlashForNoPath) {
  expectParts(L"http://h", L"http:", L"h", L"/");
  expectParts(L"http://h/", L"http:", L"h", L"/");
  expectParts(L"http://", L"http:", L"", L"/");
}

TEST(UrlSplitting, LowerCasesTheSchemeAlone) {
  expectParts(L"HTTPS://Host.Test/Path", L"https:", L"Host.Test", L"/Path");
}

TEST(UrlSplitting, SplitsAtTheFirstDoubleSlash) {
  expectParts(L"http://h//a//b", L"http:", L"h", L"//a//b");
  expectParts(L"//h/p", L"", L"h", L"/p");
  expectParts(L"http:////p", L"http:", L"", L"//p");
}

TEST(UrlSplitting, KeepsQueriesAndUsersWhereTheyStand) {
  expectParts(L"http://u:p@h?q=1", L"http:", L"u:p@h?q=1", L"/");
  expectParts(L"http://h/p?q=//1#f", L"http:", L"h", L"/p?q=//1#f");
}

TEST(UrlSplitting, ReportsAUrlWithoutADoubleSlashAndLeavesTheThreeEmpty) {
  for (const wchar_t* url : {L"", L"/account-service", L"http:/h/p", L"abc"}) {
    const test::FailureRecorder recorder;
    const UrlParts parts = split(url);
    EXPECT_EQ(parts.scheme, L"");
    EXPECT_EQ(parts.host, L"");
    EXPECT_EQ(parts.path, L"");
    EXPECT_EQ(recorder.reports(),
              test::Reports{L"Error 5 (Invalid procedure call or argument) in procedure splitURL "
                            L"of Module winInet"});
  }
}

TEST(UrlSplitting, TakesUrlsOfUpTo32767Characters) {
  const std::wstring start = L"http://h/";
  const std::wstring longest = start + std::wstring(32767 - start.size(), L'p');
  expectParts(longest, L"http:", L"h", longest.substr(8));

  const test::FailureRecorder recorder;
  const UrlParts parts = split(longest + L'p');
  EXPECT_EQ(parts.scheme, L"");
  EXPECT_EQ(parts.host, L"");
  EXPECT_EQ(parts.path, L"");
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 6 (Overflow) in procedure splitURL of Module winInet"});
}

TEST(ApiErrorText, HasTheCodeInDecimalAndHexadecimalAfterTwoSpaces) {
  EXPECT_EQ(winInet::apiErrorText(12345), L"(No such error)  Dec: 12345\tHex: 3039");
}

TEST(ApiErrorText, WritesHexadecimalInUpperCaseWithoutLeadingZeros) {
  EXPECT_TRUE(winInet::apiErrorText(0xABCDE).ends_with(L"  Dec: 703710\tHex: ABCDE"));
  EXPECT_TRUE(winInet::apiErrorText(0).ends_with(L"  Dec: 0\tHex: 0"));
  EXPECT_TRUE(winInet::apiErrorText(12002).ends_with(L"  Dec: 12002\tHex: 2EE2"));
}

TEST(ApiErrorText, StartsWithTheMessageOfTheCode) {
  for (const std::uint32_t code : {12002U, 12007U, 12029U}) {
    const std::wstring text = winInet::apiErrorText(code);
    EXPECT_FALSE(text.starts_with(L"(No such error)")) << code;
    EXPECT_GT(text.find(L"  Dec: "), 3U) << code;
  }
  EXPECT_NE(winInet::apiErrorText(12152).starts_with(L"(No such error)"),
            test::expectations().http.hasText(12152));
}

TEST(Transport, SaysThatTheConnectStepFailedForAUrlThatCannotBeSplit) {
  const test::FailureRecorder recorder;
  const winInet::Answer answer = winInet::winInetSend(L"/account-service", L"name", "<a/>");
  ASSERT_TRUE(answer.failure);
  EXPECT_EQ(answer.failure->step, L"InternetConnect");
  EXPECT_EQ(answer.failure->message, winInet::apiErrorText(answer.failure->code));
  EXPECT_FALSE(answer.hasSent);
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 5 (Invalid procedure call or argument) in procedure splitURL of "
                          L"Module winInet"});
}

}  // namespace
}  // namespace ktpnaips
