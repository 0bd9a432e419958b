#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/notification/icao_suppl_info.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/fault.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

using test::part;
using test::written;

const char* const radios = "<ndd:radios uhf=\"false\" vhf=\"false\" elt-406-MHz=\"true\"/>";
const char* const survival =
    "<ndd:survival polar=\"false\" desert=\"false\" maritime=\"false\" jungle=\"false\"/>";
const char* const jackets =
    "<ndd:jackets light=\"false\" fluor=\"false\" uhf=\"false\" vhf=\"false\"/>";
const char* const pilot = "<ndd:pilot name=\"\" phone=\"\"/>";
const std::string equipment = std::string(radios) + survival + jackets;

class SupplInfo : public testing::Test {
 protected:
  ICAOSupplInfo info;

 private:
  test::FreshSettings settings_;
};

TEST_F(SupplInfo, HasItsDefaults) {
  EXPECT_EQ(info.Endurance(), 0);
  EXPECT_FALSE(info.POBTBA());
  EXPECT_EQ(info.POB(), 0);
  EXPECT_EQ(info.DinghyCount(), 0);
  EXPECT_EQ(info.DinghyCapacity(), 0);
  EXPECT_FALSE(info.DinghyCovered());
  EXPECT_EQ(info.DinghyColour(), L"YELLOW");
  EXPECT_EQ(info.AircraftColour(), L"");
  EXPECT_EQ(info.Remarks(), L"");
  ASSERT_NE(info.Pilot(), nullptr);
  EXPECT_EQ(info.Pilot()->Name(), L"");
  EXPECT_EQ(info.Pilot()->Phone(), L"");
  for (int bit = 0; bit <= 30; ++bit) EXPECT_EQ(info.flag(bit), bit == 2);
}

TEST_F(SupplInfo, WritesItsDefaults) {
  EXPECT_EQ(written(info), part(equipment + pilot));
}

TEST_F(SupplInfo, WritesItsDefaultsInTheDomesticForm) {
  NAIPSConfig().DisableICAO(true);
  EXPECT_EQ(written(info),
            part(std::string(radios) +
                 "<ndd:survival first-aid=\"false\" rations=\"false\" water=\"false\"/>" + jackets +
                 pilot));
}

/// The equipment with the attributes of these bits "true".
std::string equipmentOf(std::uint32_t bits, bool isDomestic) {
  const auto attribute = [&](const std::string& name, unsigned bit) {
    return " " + name + "=\"" + ((bits >> bit & 1U) != 0 ? "true" : "false") + "\"";
  };
  return "<ndd:radios" + attribute("uhf", 0) + attribute("vhf", 1) + attribute("elt-406-MHz", 2) +
         "/><ndd:survival" +
         (isDomestic ? attribute("first-aid", 7) + attribute("rations", 8) + attribute("water", 9)
                     : attribute("polar", 3) + attribute("desert", 4) + attribute("maritime", 5) +
                           attribute("jungle", 6)) +
         "/><ndd:jackets" + attribute("light", 10) + attribute("fluor", 11) + attribute("uhf", 12) +
         attribute("vhf", 13) + "/>";
}

TEST_F(SupplInfo, WritesEachBitInBothForms) {
  for (const bool isDomestic : {false, true}) {
    NAIPSConfig().DisableICAO(isDomestic);
    for (unsigned bit = 0; bit <= 30; ++bit) {
      ICAOSupplInfo one;
      one.setFlag(2, false);
      one.setFlag(static_cast<std::int32_t>(bit), true);
      EXPECT_EQ(written(one), part(equipmentOf(1U << bit, isDomestic) + pilot)) << bit;
    }
  }
}

TEST_F(SupplInfo, WritesAllBitsInBothForms) {
  for (int bit = 0; bit < 14; ++bit) info.setFlag(bit, true);
  EXPECT_EQ(written(info),
            part("<ndd:radios uhf=\"true\" vhf=\"true\" elt-406-MHz=\"true\"/>"
                 "<ndd:survival polar=\"true\" desert=\"true\" maritime=\"true\" jungle=\"true\"/>"
                 "<ndd:jackets light=\"true\" fluor=\"true\" uhf=\"true\" vhf=\"true\"/>"
                 "<ndd:pilot name=\"\" phone=\"\"/>"));
  NAIPSConfig().DisableICAO(true);
  EXPECT_EQ(written(info),
            part("<ndd:radios uhf=\"true\" vhf=\"true\" elt-406-MHz=\"true\"/>"
                 "<ndd:survival first-aid=\"true\" rations=\"true\" water=\"true\"/>"
                 "<ndd:jackets light=\"true\" fluor=\"true\" uhf=\"true\" vhf=\"true\"/>"
                 "<ndd:pilot name=\"\" phone=\"\"/>"));
}

TEST_F(SupplInfo, LosesItsEltWithTheBit) {
  info.setFlag(2, true);
  info.setFlag(2, true);
  EXPECT_TRUE(info.flag(2));
  info.setFlag(2, false);
  EXPECT_EQ(written(info), part("<ndd:radios uhf=\"false\" vhf=\"false\" elt-406-MHz=\"false\"/>" +
                                std::string(survival) + jackets + pilot));
}

TEST_F(SupplInfo, OverflowsFromBit31On) {
  for (const std::int32_t bit : {31, 32, std::numeric_limits<std::int32_t>::max()}) {
    EXPECT_EQ(test::faultOf([&] { (void)info.flag(bit); }), fault::overflow);
    EXPECT_EQ(test::faultOf([&] { info.setFlag(bit, true); }), fault::overflow);
  }
}

TEST_F(SupplInfo, WritesEverythingInItsOrder) {
  info.Endurance(330);
  info.POB(152);
  info.DinghyCount(4);
  info.DinghyCapacity(160);
  info.DinghyCovered(true);
  info.DinghyColour(L"red");
  info.AircraftColour(L"white");
  info.Remarks(L"kit");
  info.Pilot()->Name(L"jo");
  info.Pilot()->Phone(L"123");
  EXPECT_EQ(written(info),
            part("<ndd:end>PT05H30M</ndd:end><ndd:pob>152</ndd:pob>" + equipment +
                 "<ndd:dinghies><ndd:number>4</ndd:number><ndd:capacity>160</ndd:capacity>"
                 "<ndd:covered>true</ndd:covered><ndd:colour>RED</ndd:colour></ndd:dinghies>"
                 "<ndd:acft-col-mark>WHITE</ndd:acft-col-mark><ndd:rmk>KIT</ndd:rmk>"
                 "<ndd:pilot name=\"JO\" phone=\"123\"/>"));
}

TEST_F(SupplInfo, TakesAnEnduranceFromZero) {
  info.Endurance(1);
  EXPECT_EQ(written(info), part("<ndd:end>PT00H01M</ndd:end>" + equipment + pilot));
  info.Endurance(-1);
  EXPECT_EQ(info.Endurance(), 1);
  info.Endurance(0);
  EXPECT_EQ(written(info), part(equipment + pilot));
  info.Endurance(32767);
  EXPECT_EQ(written(info), part("<ndd:end>PT546H07M</ndd:end>" + equipment + pilot));
}

TEST_F(SupplInfo, WritesPersonsOnBoardAboveZero) {
  info.POB(1);
  EXPECT_EQ(written(info), part("<ndd:pob>1</ndd:pob>" + equipment + pilot));
  info.POB(-1);
  EXPECT_EQ(info.POB(), 1);
  info.POB(0);
  EXPECT_EQ(info.POB(), 0);
  EXPECT_EQ(written(info), part(equipment + pilot));
}

TEST_F(SupplInfo, LetsPersonsToBeAdvisedWinOverANumber) {
  info.POBTBA(true);
  EXPECT_EQ(written(info), part("<ndd:pob>TBA</ndd:pob>" + equipment + pilot));
  info.POB(7);
  EXPECT_EQ(written(info), part("<ndd:pob>TBA</ndd:pob>" + equipment + pilot));
}

TEST_F(SupplInfo, TakesUpTo99Dinghies) {
  info.DinghyCount(99);
  for (const std::int16_t refused : {std::int16_t{100}, std::int16_t{-1}}) {
    info.DinghyCount(refused);
    EXPECT_EQ(info.DinghyCount(), 99);
  }
  info.DinghyCapacity(999);
  for (const std::int16_t refused : {std::int16_t{1000}, std::int16_t{-1}}) {
    info.DinghyCapacity(refused);
    EXPECT_EQ(info.DinghyCapacity(), 999);
  }
  EXPECT_EQ(written(info),
            part(equipment +
                 "<ndd:dinghies><ndd:number>99</ndd:number><ndd:capacity>999</ndd:capacity>"
                 "<ndd:covered>false</ndd:covered><ndd:colour>YELLOW</ndd:colour></ndd:dinghies>" +
                 pilot));
}

TEST_F(SupplInfo, WritesDinghiesFromOneOn) {
  info.DinghyCapacity(8);
  info.DinghyColour(L"");
  EXPECT_EQ(written(info), part(equipment + pilot));
  info.DinghyCount(1);
  EXPECT_EQ(written(info),
            part(equipment +
                 "<ndd:dinghies><ndd:number>1</ndd:number><ndd:capacity>8</ndd:capacity>"
                 "<ndd:covered>false</ndd:covered><ndd:colour/></ndd:dinghies>" +
                 pilot));
  info.DinghyCount(0);
  EXPECT_EQ(info.DinghyCount(), 0);
  EXPECT_EQ(written(info), part(equipment + pilot));
}

TEST_F(SupplInfo, TakesADinghyCapacityBackToZero) {
  info.DinghyCount(1);
  info.DinghyCapacity(8);
  info.DinghyCapacity(0);
  EXPECT_EQ(info.DinghyCapacity(), 0);
  EXPECT_EQ(written(info),
            part(equipment +
                 "<ndd:dinghies><ndd:number>1</ndd:number><ndd:capacity>0</ndd:capacity>"
                 "<ndd:covered>false</ndd:covered><ndd:colour>YELLOW</ndd:colour></ndd:dinghies>" +
                 pilot));
}

TEST_F(SupplInfo, WritesTheColourOfTheAircraftAndTheRemarksWithoutEachOther) {
  info.AircraftColour(L" white   and blue ");
  EXPECT_EQ(written(info),
            part(equipment + "<ndd:acft-col-mark>WHITE AND BLUE</ndd:acft-col-mark>" + pilot));
  info.AircraftColour(L" ");
  info.Remarks(L" medical   kit ");
  EXPECT_EQ(written(info), part(equipment + "<ndd:rmk>MEDICAL KIT</ndd:rmk>" + pilot));
}

/// The property cleans a text, then cuts it, and never through a character.
template <class TextProperty>
void expectCutAt(TextProperty& property, std::size_t length) {
  property(std::wstring(length, L'a'));
  EXPECT_EQ(property(), std::wstring(length, L'A'));
  property(std::wstring(length + 1, L'a'));
  EXPECT_EQ(property(), std::wstring(length, L'A'));
  property(L"  b   " + std::wstring(length - 2, L'a') + L"cd");
  EXPECT_EQ(property(), L"B " + std::wstring(length - 2, L'A'));
  property(std::wstring(100'000, L' ') + L"b");
  EXPECT_EQ(property(), L"B");
  const std::wstring emoji = L"\U0001F6E9";
  property(std::wstring(length - 2, L'a') + emoji + L"b");
  EXPECT_EQ(property(), std::wstring(length - 2, L'A') + emoji);
  property(std::wstring(length - 1, L'a') + emoji);
  EXPECT_EQ(property(), std::wstring(length - 1, L'A'));
  property(L"   ");
  EXPECT_EQ(property(), L"");
}

TEST_F(SupplInfo, CutsItsTexts) {
  expectCutAt(info.DinghyColour, 10);
  expectCutAt(info.AircraftColour, 46);
  expectCutAt(info.Remarks, 134);
}

TEST_F(SupplInfo, KeepsASpaceAtTheCut) {
  info.DinghyColour(L"123456789 b");
  EXPECT_EQ(info.DinghyColour(), L"123456789 ");
}

TEST_F(SupplInfo, HasAPilotOfItsOwnAndSharesTheHosts) {
  EXPECT_NE(info.Pilot(), ICAOSupplInfo().Pilot());
  const auto contact = std::make_shared<PilotContactInfo>();
  info.Pilot(contact);
  EXPECT_EQ(info.Pilot(), contact);
  contact->Name(L"jo");
  EXPECT_EQ(written(info), part(equipment + "<ndd:pilot name=\"JO\" phone=\"\"/>"));
}

TEST_F(SupplInfo, LeavesThePilotEmptyWithoutOne) {
  info.Pilot(nullptr);
  EXPECT_EQ(info.Pilot(), nullptr);
  EXPECT_EQ(written(info), part(equipment + "<ndd:pilot/>"));
}

class FailingPilot : public PilotContactInfo {
 public:
  void appendTo(const xml::Node&, std::wstring_view) const override {
    throw RuntimeFault(fault::typeMismatch);
  }
};

TEST_F(SupplInfo, ReportsAFailureAndKeepsWhatItWrote) {
  info.Pilot(std::make_shared<FailingPilot>());
  const test::FailureRecorder recorder;
  EXPECT_EQ(written(info), part(equipment + "<ndd:pilot/>"));
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 13 (Type mismatch) in procedure IAppendable_appendTo of Class "
                          L"Module ICAOSupplInfo"});
}

TEST(PilotContact, IsEmptyAndWritesBothAttributesAtFirst) {
  const PilotContactInfo contact;
  EXPECT_EQ(contact.Name(), L"");
  EXPECT_EQ(contact.Phone(), L"");
  EXPECT_EQ(written(contact), "<ndd:part name=\"\" phone=\"\"/>");
}

TEST(PilotContact, WritesItsNameThenItsPhone) {
  PilotContactInfo contact;
  contact.Phone(L" +61 2  5550 0100 ");
  contact.Name(L" jo   \"o'\" citizen ");
  EXPECT_EQ(written(contact),
            "<ndd:part name=\"JO &quot;O'&quot; CITIZEN\" phone=\"+61 2 5550 0100\"/>");
}

TEST(PilotContact, CutsItsTexts) {
  PilotContactInfo contact;
  expectCutAt(contact.Name, 20);
  expectCutAt(contact.Phone, 19);
}

TEST(PilotContact, LetsNoFailureEscape) {
  PilotContactInfo contact;
  contact.Name(L"a long name of pilot");
  contact.Phone(L"0123456789012345678");
  for (const std::wstring& outcome : test::outcomesOfAppending(contact)) {
    EXPECT_EQ(outcome, test::outOfMemory(L"IAppendable_appendTo", L"PilotContactInfo"));
  }
}

}  // namespace
}  // namespace ktpnaips
