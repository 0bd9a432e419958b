#include <ktpnaips/notification/icao_notification.h>

#include <gtest/gtest.h>

#include <memory>

#include "tests/support/parts.h"
#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

/// The parts of a stage, owned by the host.
struct StageParts {
  std::shared_ptr<ICAORoute> route = std::make_shared<ICAORoute>();
  std::shared_ptr<ICAOOtherInfo> otherInfo = std::make_shared<ICAOOtherInfo>();
  std::shared_ptr<SarTimeInfo> sarTime = std::make_shared<SarTimeInfo>();
  std::shared_ptr<ICAOSupplInfo> supplInfo = std::make_shared<ICAOSupplInfo>();

  void setOn(ICAOFlightNotifStage& stage) const {
    stage.Route(route);
    stage.OtherInfo(otherInfo);
    stage.SARTime(sarTime);
    stage.SupplInfo(supplInfo);
  }
};

TEST(IcaoStageParts, AreTheHostsOwnObjects) {
  const StageParts parts;
  ICAOFlightNotifStage stage;
  parts.setOn(stage);
  EXPECT_EQ(stage.Route(), parts.route);
  EXPECT_EQ(stage.OtherInfo(), parts.otherInfo);
  EXPECT_EQ(stage.SARTime(), parts.sarTime);
  EXPECT_EQ(stage.SupplInfo(), parts.supplInfo);
}

TEST(IcaoStageParts, AreSentWithoutEachOther) {
  const test::FreshSettings settings;
  const StageParts parts;
  const auto fromRoute = [](auto set) {
    ICAOFlightNotifStage stage;
    set(stage);
    const std::string text = test::written(stage);
    return text.substr(text.find("<ndd:route"));
  };
  EXPECT_EQ(fromRoute([&](auto& stage) { stage.Route(parts.route); }),
            "<ndd:route><ndd:speed>N0100</ndd:speed><ndd:level>A080</ndd:level></ndd:route>"
            "<ndd:reg/><ndd:other-info/></ndd:part>");
  parts.otherInfo->EET(L"ybbb0010");
  EXPECT_EQ(fromRoute([&](auto& stage) { stage.OtherInfo(parts.otherInfo); }),
            "<ndd:route/><ndd:reg/><ndd:other-info><ndd:eet>YBBB0010</ndd:eet></ndd:other-info>"
            "</ndd:part>");
  EXPECT_EQ(fromRoute([&](auto& stage) { stage.SARTime(parts.sarTime); }),
            "<ndd:route/><ndd:reg/><ndd:other-info/><ndd:sartimeinfo>"
            "<ndd:sartimetban>TBA</ndd:sartimetban><ndd:ats-unit/><ndd:location/>"
            "</ndd:sartimeinfo></ndd:part>");
  EXPECT_EQ(fromRoute([&](auto& stage) { stage.SupplInfo(parts.supplInfo); }),
            "<ndd:route/><ndd:reg/><ndd:other-info/><ndd:suppl-info>"
            "<ndd:radios uhf=\"false\" vhf=\"false\" elt-406-MHz=\"true\"/>"
            "<ndd:survival polar=\"false\" desert=\"false\" maritime=\"false\" jungle=\"false\"/>"
            "<ndd:jackets light=\"false\" fluor=\"false\" uhf=\"false\" vhf=\"false\"/>"
            "<ndd:pilot name=\"\" phone=\"\"/></ndd:suppl-info></ndd:part>");
}

TEST(IcaoStageParts, AreLeftOutOnceTheyAreTakenAway) {
  const test::FreshSettings settings;
  ICAOFlightNotifStage stage;
  const std::string without = test::written(stage);
  StageParts().setOn(stage);
  EXPECT_NE(test::written(stage), without);
  stage.Route(nullptr);
  stage.OtherInfo(nullptr);
  stage.SARTime(nullptr);
  stage.SupplInfo(nullptr);
  EXPECT_EQ(test::written(stage), without);
}

TEST(IcaoStageParts, AreReleasedWithTheirStage) {
  const StageParts parts;
  {
    ICAOFlightNotifStage stage;
    parts.setOn(stage);
    EXPECT_EQ(parts.route.use_count(), 2);
  }
  EXPECT_EQ(parts.route.use_count(), 1);
  EXPECT_EQ(parts.otherInfo.use_count(), 1);
  EXPECT_EQ(parts.sarTime.use_count(), 1);
  EXPECT_EQ(parts.supplInfo.use_count(), 1);
}

}  // namespace
}  // namespace ktpnaips
