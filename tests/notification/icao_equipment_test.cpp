#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/notification/icao_notification.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

class IcaoEquipment : public testing::Test {
 protected:
  static void useNewFormat() { NAIPSConfig().NewFPLFormat(true); }

  std::string element(const std::string& name) const { return test::writtenElement(stage, name); }

  ICAOFlightNotifStage stage;

 private:
  test::FreshSettings settings_;
};

TEST_F(IcaoEquipment, HasAllItsSpacesRemoved) {
  stage.NavComEquip(L"  s d  f ");
  EXPECT_EQ(stage.NavComEquip(), L"SDF");
  stage.SSREquip(L" e b1  u2");
  EXPECT_EQ(stage.SSREquip(), L"EB1U2");
  stage.NavComEquip(L"s\td");
  EXPECT_EQ(stage.NavComEquip(), L"S\tD");
  stage.NavComEquip(L"");
  stage.SSREquip(L"   ");
  EXPECT_EQ(stage.NavComEquip(), L"N");
  EXPECT_EQ(stage.SSREquip(), L"N");
}

TEST_F(IcaoEquipment, IsAListOfTheDesignatorsOfItem10aInTheNewFormat) {
  useNewFormat();
  const auto listOf = [&](std::wstring_view equipment) {
    stage.NavComEquip(equipment);
    return element("nav-com-equip");
  };
  const auto list = [](const std::string& text) {
    return "<ndd:nav-com-equip>" + text + "</ndd:nav-com-equip>";
  };
  EXPECT_EQ(listOf(L" s d f "), list("S D F"));
  EXPECT_EQ(listOf(L"SDFGE2J5"), list("S D F G E2 J5"));
  EXPECT_EQ(listOf(L"NSABCDFGHIKLORTUVWXYZ"), list("N S A B C D F G H I K L O R T U V W X Y Z"));
  EXPECT_EQ(listOf(L"E1E2E3J1J2J3J4J5J6J7M1M2M3"), list("E1 E2 E3 J1 J2 J3 J4 J5 J6 J7 M1 M2 M3"));
  EXPECT_EQ(listOf(L"P1P2P3P4P5P6P7P8P9"), list("P1 P2 P3 P4 P5 P6 P7 P8 P9"));
  EXPECT_EQ(listOf(L"S/D,F-G"), list("S D F G"));
  EXPECT_EQ(listOf(L"SE4QJ8D"), list("S D"));
  EXPECT_EQ(listOf(L"EE1"), list("E1"));
}

TEST_F(IcaoEquipment, LosesWhatIsNoDesignatorOfItem10aInTheNewFormat) {
  useNewFormat();
  for (const wchar_t* equipment : {L"Q", L"5", L"E", L"E0", L"E4", L"J", L"J0", L"J8", L"M0", L"M4",
                                   L"P", L"P0", L"\u00c4\u0410", L"\U0001F6E9"}) {
    stage.NavComEquip(equipment);
    EXPECT_EQ(element("nav-com-equip"), "<ndd:nav-com-equip/>");
  }
  stage.NavComEquip(std::wstring(100'000, L'Q'));
  EXPECT_EQ(element("nav-com-equip"), "<ndd:nav-com-equip/>");
  stage.NavComEquip(std::wstring_view(L"S\0D", 3));
  EXPECT_EQ(element("nav-com-equip"), "<ndd:nav-com-equip>S D</ndd:nav-com-equip>");
  stage.NavComEquip(L"S" + std::wstring(1, static_cast<wchar_t>(0xD800)) + L"D");
  EXPECT_EQ(element("nav-com-equip"), "<ndd:nav-com-equip>S D</ndd:nav-com-equip>");
}

TEST_F(IcaoEquipment, IsAListOfTheDesignatorsOfItem10bInTheNewFormat) {
  useNewFormat();
  const auto listOf = [&](std::wstring_view equipment) {
    stage.SSREquip(equipment);
    return element("surv-equip");
  };
  const auto list = [](const std::string& text) {
    return "<ndd:surv-equip>" + text + "</ndd:surv-equip>";
  };
  EXPECT_EQ(listOf(L"e b1 u2 q"), list("E B1 U2"));
  EXPECT_EQ(listOf(L"NLEHSIPXCA"), list("N L E H S I P X C A"));
  EXPECT_EQ(listOf(L"B1B2U1U2V1V2D1G1"), list("B1 B2 U1 U2 V1 V2 D1 G1"));
  EXPECT_EQ(listOf(L"SB3EV0"), list("S E"));
}

TEST_F(IcaoEquipment, LosesWhatIsNoDesignatorOfItem10bInTheNewFormat) {
  useNewFormat();
  for (const wchar_t* equipment :
       {L"Q", L"1", L"B", L"B0", L"B3", L"U3", L"V", L"V3", L"D", L"D2", L"G", L"G2", L"OFTM"}) {
    stage.SSREquip(equipment);
    EXPECT_EQ(element("surv-equip"), "<ndd:surv-equip/>");
  }
  stage.SSREquip(std::wstring(100'000, L'B'));
  EXPECT_EQ(element("surv-equip"), "<ndd:surv-equip/>");
}

TEST_F(IcaoEquipment, KnowsNoOtherDesignatorsInTheNewFormat) {
  useNewFormat();
  const auto known = [&](auto& property, const std::string& name) {
    std::string list;
    const auto add = [&](const std::string& designator) {
      property(std::wstring(designator.begin(), designator.end()));
      if (element(name) == "<ndd:" + name + ">" + designator + "</ndd:" + name + ">") {
        list += designator + ' ';
      }
    };
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      add({letter});
      for (char digit = '0'; digit <= '9'; ++digit) add({letter, digit});
    }
    return list;
  };
  EXPECT_EQ(known(stage.NavComEquip, "nav-com-equip"),
            "A B C D E1 E2 E3 F G H I J1 J2 J3 J4 J5 J6 J7 K L M1 M2 M3 N O "
            "P1 P2 P3 P4 P5 P6 P7 P8 P9 R S T U V W X Y Z ");
  EXPECT_EQ(known(stage.SSREquip, "surv-equip"), "A B1 B2 C D1 E G1 H I L N P S U1 U2 V1 V2 X ");
}

TEST_F(IcaoEquipment, IsSentAsStoredInTheOldFormat) {
  stage.NavComEquip(L"s q/e4");
  stage.SSREquip(L"q b3");
  EXPECT_EQ(element("nav-com-equip"), "<ndd:nav-com-equip>SQ/E4</ndd:nav-com-equip>");
  EXPECT_EQ(element("ssr-equip"),
            "<ndd:ssr-equip ads=\"false\"><ndd:equip>QB3</ndd:equip></ndd:ssr-equip>");
}

TEST_F(IcaoEquipment, HasAHandlerForEachOfItsLists) {
  useNewFormat();
  stage.NavComEquip(L"SDFGHIRWY");
  stage.SSREquip(L"EB1U1V1D1");
  const auto outcomes = test::outcomesOfAppending(stage);
  const std::wstring className = L"ICAOFlightNotifStage";
  EXPECT_TRUE(outcomes.contains(test::outOfMemory(L"navComStringToList", className)));
  EXPECT_TRUE(outcomes.contains(test::outOfMemory(L"ssrStringToList", className)));
  for (const std::wstring& outcome : outcomes) {
    EXPECT_TRUE(outcome.ends_with(L" of Class Module " + className));
  }
}

}  // namespace
}  // namespace ktpnaips
