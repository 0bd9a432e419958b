#include <ktpnaips/geo/point_from_name.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "tests/support/failing_allocation.h"
#include "tests/support/failure_recorder.h"

namespace ktpnaips {
namespace {

using Utils::pointFromName;

void expectNamed(std::wstring_view designator, std::wstring_view name) {
  const auto point = std::dynamic_pointer_cast<NamedPoint>(pointFromName(designator));
  ASSERT_NE(point, nullptr);
  EXPECT_EQ(point->Name(), name);
}

void expectBearing(std::wstring_view designator, std::wstring_view name, int bearing,
                   int distance) {
  const auto point = std::dynamic_pointer_cast<BearingDistPoint>(pointFromName(designator));
  ASSERT_NE(point, nullptr);
  EXPECT_EQ(point->Name(), name);
  EXPECT_EQ(point->Bearing(), bearing);
  EXPECT_EQ(point->Distance(), distance);
}

TEST(Designator, IsUsuallyAName) {
  expectNamed(L"YSSY", L"YSSY");
  expectNamed(L"  ysSy ", L"YSSY");
  expectNamed(L"a  b", L"A  B");
  expectNamed(L"", L"");
  expectNamed(L"   ", L"");
}

TEST(Designator, MayEndInABearingAndADistance) {
  expectBearing(L"SY045025", L"SY", 45, 25);
  expectBearing(L" sy045025 ", L"SY", 45, 25);
  expectBearing(L"SY000001", L"SY", 0, 1);
  expectBearing(L"SY359999", L"SY", 359, 999);
  expectBearing(L"SY299100", L"SY", 299, 100);
  expectBearing(L"sy 045025", L"SY", 45, 25);
  expectBearing(L"-045025", L"-", 45, 25);
}

TEST(Designator, MayGiveAnInvalidDistance) {
  expectBearing(L"ABC090000", L"ABC", 90, 0);
}

TEST(Designator, IsANameWhenTheBearingIsOutOfRangeOrDigitsAreMissing) {
  for (const wchar_t* name : {L"SY360025", L"SY399025", L"SY45025", L"SY0450250", L"045025",
                              L"S1Y045025", L"SY045025X", L"SY04502", L"SY045 025"}) {
    expectNamed(name, name);
  }
}

TEST(Designator, IsMatchedToItsVeryEnd) {
  expectNamed(L"SY045025\n", L"SY045025\n");
  expectNamed(L"SY045025\nA", L"SY045025\nA");
  expectBearing(L"A\nB045025", L"A\nB", 45, 25);
}

TEST(Designator, KnowsOnlyTheDigitsZeroToNine) {
  const std::wstring foreign = L"SY\u0660\u0664\u0665\u0660\u0662\u0665";
  expectNamed(foreign, foreign);
  expectBearing(L"\u0660045025", L"\u0660", 45, 25);
}

TEST(Designator, MayHoldAnyCharacter) {
  expectBearing(L"\U0001F6E9045025", L"\U0001F6E9", 45, 25);
  const std::wstring withNul(L"A\0B045025", 9);
  expectBearing(withNul, withNul.substr(0, 3), 45, 25);
  const std::wstring surrogate(1, static_cast<wchar_t>(0xD800));
  expectBearing(surrogate + L"045025", surrogate, 45, 25);
  expectNamed(surrogate, surrogate);
}

TEST(Designator, MayBeVeryLong) {
  const std::wstring letters(100'000, L'A');
  const std::wstring digits(100'000, L'1');
  expectNamed(letters, letters);
  expectNamed(digits, digits);
  expectNamed(letters + digits, letters + digits);
  expectBearing(letters + L"045025", letters, 45, 25);
}

TEST(Designator, GivesNoPointAndAReportOnAFailure) {
  const std::wstring expected =
      L"Error 7 (Out of memory) in procedure pointFromName of Module Utils";
  int failures = 0;
  for (int before = 0; before < 100; ++before) {
    const test::FailureRecorder recorder;
    std::shared_ptr<Point> point;
    {
      const test::FailingAllocation failure(before);
      point = pointFromName(L"a designator too long to be stored in place");
      if (!failure.hasFailed()) break;
    }
    const auto reports = recorder.reports();
    if (std::ranges::find(reports, expected) == reports.end()) continue;
    ++failures;
    EXPECT_EQ(point, nullptr);
  }
  EXPECT_GT(failures, 0);
}

}  // namespace
}  // namespace ktpnaips
