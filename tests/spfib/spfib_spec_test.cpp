#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/spfib/spfib_spec.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tests/support/date_time.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/fault.h"
#include "tests/support/parts.h"

namespace ktpnaips {
namespace {

using test::at;
using test::part;
using test::written;

std::shared_ptr<SPFIBStageSpec> bulletinStageFrom(std::wstring_view place) {
  auto stage = std::make_shared<SPFIBStageSpec>();
  stage->ETD(at(2026, 11, 16, 22));
  stage->Departing(place);
  stage->Destination(L"ymml");
  stage->Route(std::make_shared<SPFIBRoute>());
  return stage;
}

std::string stageText(const std::string& place) {
  return "<ndd:stage><ndd:adep><ndd:loc>" + place +
         "</ndd:loc></ndd:adep><ndd:etd>2026-11-16T22:00:00Z</ndd:etd>"
         "<ndd:ades><ndd:loc>YMML</ndd:loc></ndd:ades>"
         "<ndd:weight-category>L</ndd:weight-category><ndd:level>F180</ndd:level></ndd:stage>";
}

const std::string specStart = "<ndd:domestic>false</ndd:domestic><ndd:acid>NOSEND</ndd:acid>";
const std::string specEnd =
    "<ndd:tas>N0100</ndd:tas><ndd:exp-wind>false</ndd:exp-wind>"
    "<ndd:intl-series-notam>false</ndd:intl-series-notam>"
    "<ndd:full-text-notam>false</ndd:full-text-notam><ndd:charts>false</ndd:charts>"
    "<ndd:mid-sigwx-gpwt>false</ndd:mid-sigwx-gpwt><ndd:variant>LO</ndd:variant>";

TEST(BulletinSpec, HasItsDefaults) {
  const SPFIBSpec spec;
  EXPECT_EQ(spec.Aircraft(), L"NOSEND");
  EXPECT_EQ(spec.TAS(), L"N0100");
  EXPECT_EQ(spec.Count(), 0);
  EXPECT_EQ(spec.Item(1), nullptr);
  for (int bit = 0; bit <= 30; ++bit) EXPECT_FALSE(spec.flag(bit));
  EXPECT_EQ(written(spec), part(specStart + specEnd));
}

TEST(BulletinSpec, WritesItsStagesBetweenAircraftAndAirspeed) {
  SPFIBSpec spec;
  spec.addStage(bulletinStageFrom(L"yssy"));
  EXPECT_EQ(written(spec), part(specStart + stageText("YSSY") + specEnd));
  spec.addStage(bulletinStageFrom(L"yscb"));
  EXPECT_EQ(written(spec), part(specStart + stageText("YSSY") + stageText("YSCB") + specEnd));
}

TEST(BulletinSpec, KeepsAircraftAndAirspeedExactlyAsGiven) {
  SPFIBSpec spec;
  spec.Aircraft(L" vh  abc ");
  spec.TAS(L" n0450 ");
  EXPECT_EQ(spec.Aircraft(), L" vh  abc ");
  EXPECT_EQ(spec.TAS(), L" n0450 ");
  const std::string written = test::written(spec);
  EXPECT_NE(written.find("<ndd:acid> vh  abc </ndd:acid>"), std::string::npos);
  EXPECT_NE(written.find("<ndd:tas> n0450 </ndd:tas>"), std::string::npos);
  spec.Aircraft(L"");
  spec.TAS(L"");
  EXPECT_NE(test::written(spec).find("<ndd:acid/><ndd:tas/>"), std::string::npos);
}

TEST(BulletinSpec, WritesEachFlagFromItsBit) {
  for (int bit = 0; bit <= 30; ++bit) {
    SPFIBSpec spec;
    spec.setFlag(bit, true);
    const auto flag = [&](const std::string& name, int of) {
      return "<ndd:" + name + ">" + (bit == of ? "true" : "false") + "</ndd:" + name + ">";
    };
    EXPECT_EQ(written(spec),
              part(flag("domestic", 0) + "<ndd:acid>NOSEND</ndd:acid><ndd:tas>N0100</ndd:tas>" +
                   flag("exp-wind", 1) + flag("intl-series-notam", 2) + flag("full-text-notam", 3) +
                   flag("charts", 4) + flag("mid-sigwx-gpwt", 5) +
                   (bit == 6 ? "<ndd:variant>HI</ndd:variant>" : "<ndd:variant>LO</ndd:variant>")))
        << bit;
  }
}

TEST(BulletinSpec, ClearsAFlagAgain) {
  SPFIBSpec spec;
  spec.setFlag(0, true);
  spec.setFlag(0, false);
  EXPECT_EQ(written(spec), part(specStart + specEnd));
  EXPECT_EQ(test::faultOf([&] { spec.setFlag(31, true); }), fault::overflow);
}

TEST(BulletinSpec, TakesUpToTenStages) {
  SPFIBSpec spec;
  spec.addStage(nullptr);
  EXPECT_EQ(spec.Count(), 0);
  std::string stages;
  const auto stage = bulletinStageFrom(L"yssy");
  for (int number = 1; number <= 10; ++number) {
    spec.addStage(number == 10 ? stage : bulletinStageFrom(L"yscb"));
    stages += stageText(number == 10 ? "YSSY" : "YSCB");
  }
  spec.addStage(bulletinStageFrom(L"ymml"));
  EXPECT_EQ(spec.Count(), 10);
  EXPECT_EQ(spec.Item(10), stage);
  EXPECT_EQ(spec.Item(11), nullptr);
  EXPECT_EQ(spec.Item(0), nullptr);
  EXPECT_EQ(spec.Item(-1), nullptr);
  EXPECT_EQ(written(spec), part(specStart + stages + specEnd));
}

class FailingStage : public SPFIBStageSpec {
 public:
  void appendTo(const xml::Node&, std::wstring_view) const override {
    throw RuntimeFault(fault::typeMismatch);
  }
};

TEST(BulletinSpec, ReportsAFailureAndKeepsWhatItWrote) {
  SPFIBSpec spec;
  spec.addStage(std::make_shared<FailingStage>());
  const test::FailureRecorder recorder;
  EXPECT_EQ(written(spec), part(specStart + "<ndd:stage/>"));
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 13 (Type mismatch) in procedure IAppendable_appendTo of Class "
                          L"Module SPFIBSpec"});
}

TEST(BulletinSpec, GoesOnAfterAStageThatReportedItsOwnFailure) {
  SPFIBSpec spec;
  spec.addStage(std::make_shared<SPFIBStageSpec>());
  const test::FailureRecorder recorder;
  EXPECT_EQ(written(spec), part(specStart + "<ndd:stage><ndd:adep/></ndd:stage>" + specEnd));
  EXPECT_EQ(recorder.reports().size(), 1U);
}

}  // namespace
}  // namespace ktpnaips
