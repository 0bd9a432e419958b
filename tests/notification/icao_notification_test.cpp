#include <ktpnaips/notification/icao_notification.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "tests/support/date_time.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

using test::at;
using test::part;
using test::written;

std::shared_ptr<ICAOFlightNotifStage> stageOf(std::wstring_view aircraft) {
  auto stage = std::make_shared<ICAOFlightNotifStage>();
  stage->Aircraft(aircraft);
  stage->ETD(at(2025, 3, 7, 23, 5));
  return stage;
}

std::string stageText(int number, const std::string& aircraft) {
  return "<ndd:stage number=\"" + std::to_string(number) + "\"><ndd:acid>" + aircraft +
         "</ndd:acid><ndd:frul>V</ndd:frul><ndd:ftyp>G</ndd:ftyp><ndd:num-acft>1</ndd:num-acft>"
         "<ndd:atyp>ZZZZ</ndd:atyp><ndd:wtc>L</ndd:wtc><ndd:nav-com-equip>N</ndd:nav-com-equip>"
         "<ndd:ssr-equip ads=\"false\"><ndd:equip>N</ndd:equip></ndd:ssr-equip>"
         "<ndd:adep>UNKNOWN</ndd:adep><ndd:etd>2025-03-07T23:05:00Z</ndd:etd>"
         "<ndd:ades>UNKNOWN</ndd:ades><ndd:teet>PT00H00M</ndd:teet><ndd:route/><ndd:reg/>"
         "<ndd:other-info/></ndd:stage>";
}

class FailingIcaoStage : public ICAOFlightNotifStage {
 public:
  void appendTo(const xml::Node&, std::wstring_view) const override {
    throw RuntimeFault(fault::typeMismatch);
  }
};

TEST(IcaoNotification, IsDomesticAndWithoutStagesAtFirst) {
  const ICAOFlightNotif notification;
  EXPECT_TRUE(notification.Domestic());
  EXPECT_EQ(written(notification), part("<ndd:domestic>true</ndd:domestic>"));
}

TEST(IcaoNotification, SaysWhetherItIsDomestic) {
  ICAOFlightNotif notification;
  notification.Domestic(false);
  EXPECT_FALSE(notification.Domestic());
  EXPECT_EQ(written(notification), part("<ndd:domestic>false</ndd:domestic>"));
}

TEST(IcaoNotification, NumbersItsStagesInTheOrderAdded) {
  const test::FreshSettings settings;
  ICAOFlightNotif notification;
  notification.Add(stageOf(L"vhabc"));
  notification.Add(stageOf(L"vhdef"));
  EXPECT_EQ(written(notification), part("<ndd:domestic>true</ndd:domestic>" +
                                        stageText(1, "VHABC") + stageText(2, "VHDEF")));
}

TEST(IcaoNotification, WritesAStageAsOftenAsItWasAdded) {
  const test::FreshSettings settings;
  ICAOFlightNotif notification;
  const auto stage = stageOf(L"vhabc");
  notification.Add(stage);
  notification.Add(stage);
  stage->Aircraft(L"vhxyz");
  EXPECT_EQ(written(notification), part("<ndd:domestic>true</ndd:domestic>" +
                                        stageText(1, "VHXYZ") + stageText(2, "VHXYZ")));
}

template <class List>
constexpr bool letsTheHostRead = requires(List list) {
  list.Count();
}
|| requires(List list) {
  list.Item(1);
}
|| requires(List list) {
  list.Remove(1);
}
|| requires(List list) {
  list.begin();
};

TEST(IcaoNotification, KeepsItsStagesAndShowsThemToNobody) {
  const test::FreshSettings settings;
  static_assert(!letsTheHostRead<ICAOFlightNotif>);
  ICAOFlightNotif notification;
  notification.Add(stageOf(L"vhabc"));
  const std::string once = written(notification);
  EXPECT_EQ(written(notification), once);
}

TEST(IcaoNotification, IgnoresNoStage) {
  ICAOFlightNotif notification;
  notification.Add(nullptr);
  EXPECT_EQ(written(notification), part("<ndd:domestic>true</ndd:domestic>"));
}

TEST(IcaoNotification, WritesStageNumbersWithoutLeadingZerosAndWithoutALimit) {
  const test::FreshSettings settings;
  ICAOFlightNotif notification;
  std::string expected = "<ndd:domestic>true</ndd:domestic>";
  for (int number = 1; number <= 120; ++number) {
    notification.Add(stageOf(L"a"));
    expected += stageText(number, "A");
  }
  EXPECT_EQ(written(notification), part(expected));
}

TEST(IcaoNotification, ReportsAFailureUnderALongerClassNameAndKeepsWhatItWrote) {
  const test::FreshSettings settings;
  ICAOFlightNotif notification;
  notification.Add(stageOf(L"vhabc"));
  notification.Add(std::make_shared<FailingIcaoStage>());
  notification.Add(stageOf(L"vhdef"));
  const test::FailureRecorder recorder;
  EXPECT_EQ(written(notification), part("<ndd:domestic>true</ndd:domestic>" +
                                        stageText(1, "VHABC") + "<ndd:stage number=\"2\"/>"));
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 13 (Type mismatch) in procedure IAppendable_appendTo of Class "
                          L"Module ICAOFlightNotification"});
}

}  // namespace
}  // namespace ktpnaips
