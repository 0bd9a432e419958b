#include <ktpnaips/core/numbers.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <clocale>
#include <limits>
#include <string>
#include <string_view>

#include "tests/support/fault.h"

namespace ktpnaips {
namespace {

using test::faultOf;

TEST(LeadingNumber, IsTheNumberAtTheStartOfTheText) {
  EXPECT_EQ(leadingNumber(L"7"), 7.0);
  EXPECT_EQ(leadingNumber(L"007"), 7.0);
  EXPECT_EQ(leadingNumber(L"151.18"), 151.18);
  EXPECT_EQ(leadingNumber(L"-33.95"), -33.95);
  EXPECT_EQ(leadingNumber(L"+5"), 5.0);
  EXPECT_EQ(leadingNumber(L".5"), 0.5);
  EXPECT_EQ(leadingNumber(L"-.5"), -0.5);
  EXPECT_EQ(leadingNumber(L"5."), 5.0);
  EXPECT_EQ(leadingNumber(L"151.18 E"), 151.18);
  EXPECT_EQ(leadingNumber(L"12abc"), 12.0);
  EXPECT_EQ(leadingNumber(L"1.2.3"), 1.2);
  EXPECT_EQ(leadingNumber(L"1-2"), 1.0);
}

TEST(LeadingNumber, IsZeroOfAnyOtherText) {
  for (const wchar_t* text : {L"", L"   ", L"abc", L"-", L"+", L".", L"-.", L"--5", L"e5", L"$5",
                              L",5", L"inf", L"nan", L"\u0661", L"\uff11", L"\U0001F6E9"}) {
    EXPECT_EQ(leadingNumber(text), 0.0);
  }
  EXPECT_EQ(leadingNumber(std::wstring(100'000, L'x')), 0.0);
  EXPECT_EQ(leadingNumber(std::wstring(100'000, L' ')), 0.0);
}

TEST(LeadingNumber, EndsAtANul) {
  EXPECT_EQ(leadingNumber(std::wstring_view(L"1\0002", 3)), 1.0);
}

TEST(LeadingNumber, SkipsSpacesTabsAndLineFeeds) {
  EXPECT_EQ(leadingNumber(L"  -33.95"), -33.95);
  EXPECT_EQ(leadingNumber(L"\t\n 5"), 5.0);
  EXPECT_EQ(leadingNumber(L"1 615 198"), 1615198.0);
  EXPECT_EQ(leadingNumber(L"- 33 . 95"), -33.95);
}

TEST(LeadingNumber, HasAPointWhateverTheLocale) {
  EXPECT_EQ(leadingNumber(L"1,5"), 1.0);
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"de_DE.UTF-8", "de_DE", "German", "fr_FR.UTF-8"}) {
    std::setlocale(LC_ALL, locale);
    EXPECT_EQ(leadingNumber(L"1.5"), 1.5);
    EXPECT_EQ(leadingNumber(L"1,5"), 1.0);
  }
  std::setlocale(LC_ALL, before.c_str());
}

TEST(LeadingNumber, MayHaveAnExponent) {
  EXPECT_EQ(leadingNumber(L"1e3"), 1000.0);
  EXPECT_EQ(leadingNumber(L"1E-2"), 0.01);
  EXPECT_EQ(leadingNumber(L"1.5d+2"), 150.0);
  EXPECT_EQ(leadingNumber(L"2D1"), 20.0);
  EXPECT_EQ(leadingNumber(L"3east"), 3.0);
}

TEST(LeadingNumber, OverflowsWhenItIsTooLarge) {
  EXPECT_EQ(leadingNumber(L"1e308"), 1e308);
  EXPECT_EQ(leadingNumber(L"1e-400"), 0.0);
  for (const wchar_t* text : {L"1e309", L"-1e309", L"1e99999"}) {
    EXPECT_EQ(faultOf([&] { (void)leadingNumber(text); }), fault::overflow);
  }
  EXPECT_EQ(faultOf([] { (void)leadingNumber(std::wstring(100'000, L'9')); }), fault::overflow);
}

TEST(SmallInteger, IsTheNearestWithHalvesToTheEvenNeighbour) {
  EXPECT_EQ(toInt16(0.0), 0);
  EXPECT_EQ(toInt16(0.5), 0);
  EXPECT_EQ(toInt16(1.5), 2);
  EXPECT_EQ(toInt16(2.5), 2);
  EXPECT_EQ(toInt16(-0.5), 0);
  EXPECT_EQ(toInt16(-1.5), -2);
  EXPECT_EQ(toInt16(-2.5), -2);
  EXPECT_EQ(toInt16(7.49), 7);
  EXPECT_EQ(toInt16(7.51), 8);
  EXPECT_EQ(toInt16(2024.0), 2024);
}

TEST(SmallInteger, OverflowsBeyondItsRange) {
  EXPECT_EQ(toInt16(32767.0), 32767);
  EXPECT_EQ(toInt16(32767.4), 32767);
  EXPECT_EQ(toInt16(-32768.0), -32768);
  EXPECT_EQ(toInt16(-32768.5), -32768);
  for (const double value :
       {32767.5, 32768.0, -32768.6, -32769.0, 1e300, std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(faultOf([&] { (void)toInt16(value); }), fault::overflow) << value;
  }
}

}  // namespace
}  // namespace ktpnaips
