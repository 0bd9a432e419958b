#include <ktpnaips/notification/sar_time_info.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/date_time.h"
#include "tests/support/failures.h"
#include "tests/support/parts.h"

namespace ktpnaips {
namespace {

using test::at;
using test::part;
using test::written;

TEST(SarTime, IsToBeAdvisedAtFirst) {
  const SarTimeInfo info;
  EXPECT_EQ(info.Time(), at(1970, 1, 1));
  EXPECT_TRUE(info.TBA());
  EXPECT_EQ(info.ATSUnit(), L"");
  EXPECT_EQ(info.EndPoint(), L"");
  EXPECT_EQ(info.Location(), L"");
  EXPECT_EQ(written(info),
            part("<ndd:sartimetban>TBA</ndd:sartimetban><ndd:ats-unit/><ndd:location/>"));
}

TEST(SarTime, WritesItsTimeAsItStandsUnlessToBeAdvised) {
  SarTimeInfo info;
  info.Time(at(2026, 3, 8, 1, 30, 5));
  EXPECT_EQ(written(info),
            part("<ndd:sartimetban>TBA</ndd:sartimetban><ndd:ats-unit/><ndd:location/>"));
  info.TBA(false);
  EXPECT_EQ(written(info),
            part("<ndd:sartime>2026-03-08T01:30:05Z</ndd:sartime><ndd:ats-unit/><ndd:location/>"));
}

TEST(SarTime, WritesTheTimeOfAnUnsetOne) {
  SarTimeInfo info;
  info.TBA(false);
  EXPECT_EQ(written(info),
            part("<ndd:sartime>1970-01-01T00:00:00Z</ndd:sartime><ndd:ats-unit/><ndd:location/>"));
}

TEST(SarTime, WritesItsTextsInTheirOrder) {
  SarTimeInfo info;
  info.Location(L" ys  sy ");
  info.EndPoint(L" last   stop ");
  info.ATSUnit(L" cen  sar ");
  EXPECT_EQ(info.ATSUnit(), L"CEN SAR");
  EXPECT_EQ(info.EndPoint(), L"LAST STOP");
  EXPECT_EQ(info.Location(), L"YS SY");
  EXPECT_EQ(written(info), part("<ndd:sartimetban>TBA</ndd:sartimetban>"
                                "<ndd:ats-unit>CEN SAR</ndd:ats-unit>"
                                "<ndd:endpoint>LAST STOP</ndd:endpoint>"
                                "<ndd:location>YS SY</ndd:location>"));
  info.EndPoint(L"  ");
  EXPECT_EQ(written(info), part("<ndd:sartimetban>TBA</ndd:sartimetban>"
                                "<ndd:ats-unit>CEN SAR</ndd:ats-unit>"
                                "<ndd:location>YS SY</ndd:location>"));
}

TEST(SarTime, ReportsAFailureUnderAClassNameInCapitals) {
  SarTimeInfo info;
  info.TBA(false);
  EXPECT_EQ(test::outcomesOfAppending(info),
            test::Outcomes{test::outOfMemory(L"IAppendable_appendTo", L"SARTimeInfo")});
}

}  // namespace
}  // namespace ktpnaips
