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

TEST(LeadingNumber, MayStandBehindBlanks) {
  EXPECT_EQ(leadingNumber(L"  -33.95"), -33.95);
  EXPECT_EQ(leadingNumber(L"\t\n 5"), 5.0);
}

TEST(LeadingNumber, EndsAtABlankInsideIt) {
  EXPECT_EQ(leadingNumber(L"151 12 30"), 151.0);
  EXPECT_EQ(leadingNumber(L"33.\t95"), 33.0);
  EXPECT_EQ(leadingNumber(L"1\n2"), 1.0);
  EXPECT_EQ(leadingNumber(L"- 3"), 0.0);
  EXPECT_EQ(leadingNumber(L"+ 3"), 0.0);
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

TEST(LeadingNumber, HasNoExponent) {
  EXPECT_EQ(leadingNumber(L"33D52"), 33.0);
  EXPECT_EQ(leadingNumber(L"33d52"), 33.0);
  EXPECT_EQ(leadingNumber(L"33E2"), 33.0);
  EXPECT_EQ(leadingNumber(L"33e2"), 33.0);
  EXPECT_EQ(leadingNumber(L"1.5e-2"), 1.5);
  EXPECT_EQ(leadingNumber(L"1e99999"), 1.0);
}

TEST(LeadingNumber, OverflowsWhenItIsTooLarge) {
  const std::wstring zeros(308, L'0');
  EXPECT_EQ(leadingNumber(L"1" + zeros), 1e308);
  EXPECT_EQ(leadingNumber(L"." + zeros + zeros + L"1"), 0.0);
  EXPECT_EQ(leadingNumber(L"-000." + zeros + zeros + L"1"), 0.0);
  for (const wchar_t* start : {L"10", L"-10", L"+10", L" 0010"}) {
    EXPECT_EQ(faultOf([&] { (void)leadingNumber(start + zeros); }), fault::overflow);
    EXPECT_EQ(faultOf([&] { (void)leadingNumber(start + zeros + L".5"); }), fault::overflow);
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
