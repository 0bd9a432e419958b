#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/date_time.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <limits>
#include <string>

#include "tests/support/date_time.h"
#include "tests/support/failing_allocation.h"
#include "tests/support/failure_recorder.h"

namespace ktpnaips {
namespace {

using test::at;
using Utilities::convertISODateTime;
using Utils::cleanString;
using Utils::lfToCrLf;
using Utils::minutesToDuration;

TEST(IsoDateTimeText, ConvertsADateWithATimeAndIgnoresTheZ) {
  EXPECT_EQ(convertISODateTime(L"2026-11-16T02:23:00Z"), at(2026, 11, 16, 2, 23, 0));
  EXPECT_EQ(convertISODateTime(L"2026-11-16T23:59:59"), at(2026, 11, 16, 23, 59, 59));
}

TEST(IsoDateTimeText, ConvertsABareDateToMidnight) {
  EXPECT_EQ(convertISODateTime(L"2026-11-16"), at(2026, 11, 16));
}

TEST(IsoDateTimeText, TakesATimeOnlyWhenItIsWhole) {
  EXPECT_EQ(convertISODateTime(L"2026-11-16T02:23"), at(2026, 11, 16));
  EXPECT_EQ(convertISODateTime(L"2026-11-16T"), at(2026, 11, 16));
  EXPECT_EQ(convertISODateTime(L"2026-11-16 02:23:00"), at(2026, 11, 16));
  EXPECT_EQ(convertISODateTime(L"2026-11-16T2:23:00"), at(2026, 11, 16));
}

TEST(IsoDateTimeText, IgnoresFractionsAndOffsets) {
  EXPECT_EQ(convertISODateTime(L"2026-11-16T02:23:05.999Z"), at(2026, 11, 16, 2, 23, 5));
  EXPECT_EQ(convertISODateTime(L"2026-11-16T02:23:05+10:00"), at(2026, 11, 16, 2, 23, 5));
  EXPECT_EQ(convertISODateTime(L"2026-11-16T02:23:056"), at(2026, 11, 16, 2, 23, 5));
  EXPECT_EQ(convertISODateTime(L"2026-11-161 anything"), at(2026, 11, 16));
}

TEST(IsoDateTimeText, MatchesWithoutRegardToBlanksAroundItAndTheCaseOfItsT) {
  EXPECT_EQ(convertISODateTime(L"   2026-11-16  "), at(2026, 11, 16));
  EXPECT_EQ(convertISODateTime(L" 2026-11-16t02:23:00z "), at(2026, 11, 16, 2, 23, 0));
}

TEST(IsoDateTimeText, FallsBackTo1970WhenItDoesNotMatch) {
  const DateTime fallback = at(1970, 1, 1);
  for (const wchar_t* text :
       {L"", L"   ", L"X2026-11-16", L"2026-1-16", L"26-11-16", L"2026/11/16", L"20261116",
        L"\t2026-11-16", L"\n2026-11-16", L"abc", L"text\n2026-11-16", L"-2026-11-16"}) {
    EXPECT_EQ(convertISODateTime(text), fallback);
  }
}

TEST(IsoDateTimeText, TakesOnlyTheDigitsOfAscii) {
  EXPECT_EQ(convertISODateTime(L"\u0662\u0660\u0662\u0666-11-16"), at(1970, 1, 1));
  EXPECT_EQ(convertISODateTime(L"\uff12\uff10\uff12\uff16-11-16"), at(1970, 1, 1));
}

TEST(IsoDateTimeText, RollsComponentsOverTheirRanges) {
  EXPECT_EQ(convertISODateTime(L"2026-13-16"), at(2027, 1, 16));
  EXPECT_EQ(convertISODateTime(L"2026-01-32"), at(2026, 2, 1));
  EXPECT_EQ(convertISODateTime(L"2026-11-16T24:00:00"), at(2026, 11, 17));
  EXPECT_EQ(convertISODateTime(L"2026-02-29"), at(2026, 3, 1));
  EXPECT_EQ(convertISODateTime(L"2024-02-29"), at(2024, 2, 29));
  EXPECT_EQ(convertISODateTime(L"2026-00-16"), at(2025, 12, 16));
  EXPECT_EQ(convertISODateTime(L"2026-03-00"), at(2026, 2, 28));
  EXPECT_EQ(convertISODateTime(L"2026-12-31T23:59:60"), at(2027, 1, 1));
  EXPECT_EQ(convertISODateTime(L"2026-11-16T00:99:99"), at(2026, 11, 16, 1, 40, 39));
  EXPECT_EQ(convertISODateTime(L"2026-99-99"), at(2034, 6, 7));
}

TEST(IsoDateTimeText, ReportsAFailureAndGivesTheZeroDateTime) {
  const test::FailureRecorder recorder;
  const std::wstring text = L"2026-11-16T02:23:00Z";
  convertISODateTime(text);
  DateTime result = at(2000, 1, 1);
  {
    const test::FailingAllocation failure;
    result = convertISODateTime(text);
  }
  EXPECT_EQ(result, at(1899, 12, 30));
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 7 (Out of memory) in procedure convertISODateTime of Module "
                          L"Utilities"});
}

TEST(DateTimeValue, HasAZeroAndAnUnsetValue) {
  EXPECT_EQ(zeroDateTime, at(1899, 12, 30));
  EXPECT_EQ(noDateTime, at(1970, 1, 1));
}

TEST(DateTimeValue, IsWrittenAsItStandsWithALiteralZ) {
  EXPECT_EQ(isoDateTime(at(2026, 11, 16, 2, 23, 0)), L"2026-11-16T02:23:00Z");
  EXPECT_EQ(isoDateTime(at(2024, 5, 1, 6, 30, 0)), L"2024-05-01T06:30:00Z");
  EXPECT_EQ(isoDateTime(at(2024, 2, 29, 23, 59, 59)), L"2024-02-29T23:59:59Z");
  EXPECT_EQ(isoDateTime(at(1899, 12, 30)), L"1899-12-30T00:00:00Z");
  EXPECT_EQ(isoDateTime(at(800, 1, 2, 3, 4, 5)), L"0800-01-02T03:04:05Z");
  EXPECT_EQ(isoDateTime(at(9999, 12, 31, 23, 59, 59)), L"9999-12-31T23:59:59Z");
}

TEST(DateTimeValue, IsWrittenAsADateAlone) {
  EXPECT_EQ(isoDate(at(2026, 11, 16, 23, 59, 59)), L"2026-11-16");
  EXPECT_EQ(isoDate(at(1969, 12, 31, 12, 0, 0)), L"1969-12-31");
}

TEST(MinutesAsDuration, HaveTwoDigitHoursAndMinutes) {
  EXPECT_EQ(minutesToDuration(90), L"PT01H30M");
  EXPECT_EQ(minutesToDuration(5), L"PT00H05M");
  EXPECT_EQ(minutesToDuration(600), L"PT10H00M");
  EXPECT_EQ(minutesToDuration(0), L"PT00H00M");
  EXPECT_EQ(minutesToDuration(59), L"PT00H59M");
  EXPECT_EQ(minutesToDuration(60), L"PT01H00M");
}

TEST(MinutesAsDuration, TakeMoreDigitsForHoursWhenNeeded) {
  EXPECT_EQ(minutesToDuration(6000), L"PT100H00M");
  EXPECT_EQ(minutesToDuration(32767), L"PT546H07M");
}

TEST(MinutesAsDuration, CarryTheSignInEachField) {
  EXPECT_EQ(minutesToDuration(-90), L"PT-01H-30M");
  EXPECT_EQ(minutesToDuration(std::numeric_limits<std::int16_t>::min()), L"PT-546H-08M");
}

TEST(MinutesAsDuration, LeaveTheSignOutOfAFieldOfZero) {
  EXPECT_EQ(minutesToDuration(-5), L"PT00H-05M");
  EXPECT_EQ(minutesToDuration(-60), L"PT-01H00M");
}

TEST(MinutesAsDuration, ReportAFailureAndGiveAnEmptyText) {
  const test::FailureRecorder recorder;
  std::wstring result;
  {
    const test::FailingAllocation failure;
    result = minutesToDuration(32767);
  }
  EXPECT_EQ(result, L"");
  EXPECT_EQ(
      recorder.reports(),
      test::Reports{L"Error 7 (Out of memory) in procedure minutesToDuration of Module Utils"});
}

TEST(LineEnds, BecomeCrLf) {
  EXPECT_EQ(lfToCrLf(L""), L"");
  EXPECT_EQ(lfToCrLf(L"no line end"), L"no line end");
  EXPECT_EQ(lfToCrLf(L"a\nb\n"), L"a\r\nb\r\n");
  EXPECT_EQ(lfToCrLf(L"\n\n"), L"\r\n\r\n");
}

TEST(LineEnds, StayWhenTheyAreCrLf) {
  EXPECT_EQ(lfToCrLf(L"a\r\nb\r\n\r\n"), L"a\r\nb\r\n\r\n");
}

TEST(LineEnds, ComeOutAlikeFromMixedOnes) {
  EXPECT_EQ(lfToCrLf(L"a\r\nb\nc\r\n\nd"), L"a\r\nb\r\nc\r\n\r\nd");
}

TEST(LineEnds, LeaveALoneCarriageReturn) {
  EXPECT_EQ(lfToCrLf(L"a\rb\r"), L"a\rb\r");
  EXPECT_EQ(lfToCrLf(L"a\n\rb"), L"a\r\n\rb");
  EXPECT_EQ(lfToCrLf(L"a\r\r\nb"), L"a\r\r\nb");
}

TEST(LineEnds, ReportAFailureAndGiveAnEmptyText) {
  const test::FailureRecorder recorder;
  const std::wstring text = L"long enough not to be stored in place\n";
  std::wstring result;
  {
    const test::FailingAllocation failure;
    result = lfToCrLf(text);
  }
  EXPECT_EQ(result, L"");
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 7 (Out of memory) in procedure lfToCrLf of Module Utils"});
}

TEST(CleanedText, IsTrimmedAndUpperCased) {
  EXPECT_EQ(cleanString(L""), L"");
  EXPECT_EQ(cleanString(L"    "), L"");
  EXPECT_EQ(cleanString(L" ymml "), L"YMML");
  EXPECT_EQ(cleanString(L"  ymml   yssy "), L"YMML   YSSY");
}

TEST(CleanedText, HasSingleSpacesInsideWhenAskedFor) {
  EXPECT_EQ(cleanString(L"  ymml   yssy ", true), L"YMML YSSY");
  EXPECT_EQ(cleanString(L"a  b    c     d e", true), L"A B C D E");
  EXPECT_EQ(cleanString(L"", true), L"");
  EXPECT_EQ(cleanString(L"     ", true), L"");
}

TEST(CleanedText, KeepsTabsLineBreaksAndOtherBlanks) {
  EXPECT_EQ(cleanString(L" \t a \n ", true), L"\t A \n");
  EXPECT_EQ(cleanString(L"\u00a0a\u00a0"), L"\u00a0A\u00a0");
}

TEST(CleanedText, UpperCasesLettersBeyondAscii) {
  EXPECT_EQ(cleanString(L"\u00e9\u00f1\u03b1\u0436"), L"\u00c9\u00d1\u0391\u0416");
}

TEST(CleanedText, ReportsAFailureAndIsEmpty) {
  const test::FailureRecorder recorder;
  const std::wstring text = L"long enough not to be stored in place";
  std::wstring result;
  {
    const test::FailingAllocation failure;
    result = cleanString(text);
  }
  EXPECT_EQ(result, L"");
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 7 (Out of memory) in procedure cleanString of Module Utils"});
}

TEST(TrimmedText, LosesSpacesAtBothEndsOnly) {
  EXPECT_EQ(trimSpaces(L"  a b  "), L"a b");
  EXPECT_EQ(trimSpaces(L"\ta "), L"\ta");
  EXPECT_EQ(trimSpaces(L""), L"");
  EXPECT_EQ(trimSpaces(L"   "), L"");
}

TEST(DecimalText, HasZerosInFrontAndASignOnlyWhenNegative) {
  EXPECT_EQ(decimal(0), L"0");
  EXPECT_EQ(decimal(7, 3), L"007");
  EXPECT_EQ(decimal(1234, 3), L"1234");
  EXPECT_EQ(decimal(-7, 2), L"-07");
}

}  // namespace
}  // namespace ktpnaips
