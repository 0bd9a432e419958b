#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/notification/icao_other_info.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/support/failures.h"
#include "tests/support/fault.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

using test::part;
using test::written;

class OtherInfo : public testing::Test {
 protected:
  static void useNewFormat() { NAIPSConfig().NewFPLFormat(true); }

  /// All properties, each with a text of its own.
  void fill() {
    info.EET(L"eet1");
    info.RIF(L"rif1");
    info.SEL(L"sel1");
    info.OPR(L"opr1");
    info.STS(L"hum");
    info.PER(L"c");
    info.COM(L"com1");
    info.NAV(L"nav1");
    info.DAT(L"dat1");
    info.DEP(L"dep1");
    info.Dest(L"dest1");
    info.ALTN(L"altn1");
    info.RALT(L"ralt1");
    info.Code(L"code1");
    info.RMK(L"rmk1");
    info.TYP(L"typ1");
    info.DLA(L"dla1");
    info.PBN(L"a1");
    info.SUR(L"sur1");
    info.ORGN(L"orgn1");
    info.TALT(L"talt1");
  }

  ICAOOtherInfo info;

 private:
  test::FreshSettings settings_;
};

TEST_F(OtherInfo, IsEmptyAndWritesNothingAtFirst) {
  for (const auto* text :
       {&info.EET(),  &info.RIF(),  &info.SEL(), &info.OPR(),  &info.STS(),  &info.COM(),
        &info.NAV(),  &info.DAT(),  &info.DEP(), &info.Dest(), &info.ALTN(), &info.RALT(),
        &info.Code(), &info.RMK(),  &info.TYP(), &info.DLA(),  &info.PBN(),  &info.SUR(),
        &info.ORGN(), &info.TALT(), &info.PER()}) {
    EXPECT_EQ(*text, L"");
  }
  EXPECT_EQ(written(info), test::nothingWritten);
  useNewFormat();
  EXPECT_EQ(written(info), test::nothingWritten);
}

TEST_F(OtherInfo, WritesTheOldFormatInItsOrder) {
  fill();
  EXPECT_EQ(written(info),
            part("<ndd:eet>EET1</ndd:eet><ndd:rif>RIF1</ndd:rif><ndd:sel>SEL1</ndd:sel>"
                 "<ndd:opr>OPR1</ndd:opr><ndd:sts>HUM</ndd:sts><ndd:per>C</ndd:per>"
                 "<ndd:com>COM1</ndd:com><ndd:nav>NAV1</ndd:nav><ndd:dat>DAT1</ndd:dat>"
                 "<ndd:dep>DEP1</ndd:dep><ndd:dest>DEST1</ndd:dest><ndd:altn>ALTN1</ndd:altn>"
                 "<ndd:ralt>RALT1</ndd:ralt><ndd:code>CODE1</ndd:code><ndd:rmk>RMK1</ndd:rmk>"
                 "<ndd:typ>TYP1</ndd:typ><ndd:dla>DLA1</ndd:dla>"));
}

TEST_F(OtherInfo, WritesTheNewFormatInItsOrder) {
  useNewFormat();
  fill();
  EXPECT_EQ(written(info),
            part("<ndd:sts>HUM</ndd:sts><ndd:pbn>A1</ndd:pbn><ndd:nav>NAV1</ndd:nav>"
                 "<ndd:com>COM1</ndd:com><ndd:dat>DAT1</ndd:dat><ndd:sur>SUR1</ndd:sur>"
                 "<ndd:dep>DEP1</ndd:dep><ndd:dest>DEST1</ndd:dest><ndd:eet>EET1</ndd:eet>"
                 "<ndd:sel>SEL1</ndd:sel><ndd:typ>TYP1</ndd:typ><ndd:code>CODE1</ndd:code>"
                 "<ndd:dle>DLA1</ndd:dle><ndd:opr>OPR1</ndd:opr><ndd:orgn>ORGN1</ndd:orgn>"
                 "<ndd:per>C</ndd:per><ndd:altn>ALTN1</ndd:altn><ndd:ralt>RALT1</ndd:ralt>"
                 "<ndd:talt>TALT1</ndd:talt><ndd:rif>RIF1</ndd:rif><ndd:rmk>RMK1</ndd:rmk>"));
}

TEST_F(OtherInfo, WritesEachTextWithoutTheOthers) {
  struct Item {
    Property<std::wstring, rule::Collapsed> ICAOOtherInfo::*property;
    std::string inNew;
    std::string inOld;
    std::string newText = "HUM A1";
  };
  const Item items[] = {
      {&ICAOOtherInfo::EET, "eet", "eet"},        {&ICAOOtherInfo::RIF, "rif", "rif"},
      {&ICAOOtherInfo::SEL, "sel", "sel"},        {&ICAOOtherInfo::OPR, "opr", "opr"},
      {&ICAOOtherInfo::STS, "sts", "sts", "HUM"}, {&ICAOOtherInfo::COM, "com", "com"},
      {&ICAOOtherInfo::NAV, "nav", "nav"},        {&ICAOOtherInfo::DAT, "dat", "dat"},
      {&ICAOOtherInfo::DEP, "dep", "dep"},        {&ICAOOtherInfo::Dest, "dest", "dest"},
      {&ICAOOtherInfo::ALTN, "altn", "altn"},     {&ICAOOtherInfo::RALT, "ralt", "ralt"},
      {&ICAOOtherInfo::Code, "code", "code"},     {&ICAOOtherInfo::RMK, "rmk", "rmk"},
      {&ICAOOtherInfo::TYP, "typ", "typ"},        {&ICAOOtherInfo::DLA, "dle", "dla"},
      {&ICAOOtherInfo::PBN, "pbn", "", "A1"},     {&ICAOOtherInfo::SUR, "sur", ""},
      {&ICAOOtherInfo::ORGN, "orgn", ""},         {&ICAOOtherInfo::TALT, "talt", ""}};
  const auto only = [](const std::string& name, const std::string& text) {
    if (name.empty()) return std::string(test::nothingWritten);
    return part("<ndd:" + name + ">" + text + "</ndd:" + name + ">");
  };
  for (const auto& [property, inNew, inOld, newText] : items) {
    ICAOOtherInfo one;
    (one.*property)(L"hum a1");
    NAIPSConfig().NewFPLFormat(true);
    EXPECT_EQ(written(one), only(inNew, newText));
    NAIPSConfig().NewFPLFormat(false);
    EXPECT_EQ(written(one), only(inOld, "HUM A1"));
  }
  info.PER(L"c");
  EXPECT_EQ(written(info), only("per", "C"));
  useNewFormat();
  EXPECT_EQ(written(info), only("per", "C"));
}

TEST_F(OtherInfo, CleansEveryTextAndMakesItsSpacesSingle) {
  const auto cleans = [](auto& property) {
    property(L"  a   b  c ");
    return property() == L"A B C";
  };
  EXPECT_TRUE(cleans(info.EET) && cleans(info.RIF) && cleans(info.SEL) && cleans(info.OPR));
  EXPECT_TRUE(cleans(info.STS) && cleans(info.COM) && cleans(info.NAV) && cleans(info.DAT));
  EXPECT_TRUE(cleans(info.DEP) && cleans(info.Dest) && cleans(info.ALTN) && cleans(info.RALT));
  EXPECT_TRUE(cleans(info.Code) && cleans(info.RMK) && cleans(info.TYP) && cleans(info.DLA));
  EXPECT_TRUE(cleans(info.PBN) && cleans(info.SUR) && cleans(info.ORGN) && cleans(info.TALT));
}

TEST_F(OtherInfo, LeavesOutBlankTexts) {
  for (const bool isNew : {false, true}) {
    NAIPSConfig().NewFPLFormat(isNew);
    fill();
    for (auto* property :
         {&info.EET, &info.RIF, &info.SEL,  &info.OPR,  &info.STS,  &info.COM,  &info.NAV,
          &info.DAT, &info.DEP, &info.Dest, &info.ALTN, &info.RALT, &info.Code, &info.RMK,
          &info.TYP, &info.DLA, &info.PBN,  &info.SUR,  &info.ORGN, &info.TALT}) {
      (*property)(L"   ");
      EXPECT_EQ((*property)(), L"");
    }
    info.PER(L"  ");
    EXPECT_EQ(written(info), test::nothingWritten);
  }
}

TEST_F(OtherInfo, KeepsTheFirstCharacterOfThePerformanceCategory) {
  info.PER(L"  cat ");
  EXPECT_EQ(info.PER(), L"C");
  info.PER(L"");
  EXPECT_EQ(info.PER(), L"");
  info.PER(L"\U0001F6E9");
  EXPECT_EQ(info.PER(), L"");
}

TEST_F(OtherInfo, SendsSpecialHandlingAsStoredInTheOldFormat) {
  info.STS(L" hosp,  medevac/state");
  EXPECT_EQ(info.STS(), L"HOSP, MEDEVAC/STATE");
  EXPECT_EQ(written(info), part("<ndd:sts>HOSP, MEDEVAC/STATE</ndd:sts>"));
  info.STS(L"xyz");
  EXPECT_EQ(written(info), part("<ndd:sts>XYZ</ndd:sts>"));
}

TEST_F(OtherInfo, SendsTheKnownReasonsForSpecialHandlingInTheNewFormat) {
  useNewFormat();
  const auto listOf = [&](std::wstring_view text) {
    info.STS(text);
    return written(info);
  };
  const auto list = [](const std::string& text) { return part("<ndd:sts>" + text + "</ndd:sts>"); };
  EXPECT_EQ(listOf(L"hosp, medevac/state"), list("HOSP MEDEVAC STATE"));
  EXPECT_EQ(info.STS(), L"HOSP, MEDEVAC/STATE");
  EXPECT_EQ(listOf(L"ALTRVATFMXFFRFLTCKHAZMATHEADHOSPHUMMARSAMEDEVACNONRVSMSARSTATE"),
            list("ALTRV ATFMX FFR FLTCK HAZMAT HEAD HOSP HUM MARSA MEDEVAC NONRVSM SAR STATE"));
  EXPECT_EQ(listOf(L"sar sar"), list("SAR SAR"));
  EXPECT_EQ(listOf(L"humsarx"), list("HUM SAR"));
  EXPECT_EQ(listOf(L"marsar"), list("MARSA"));
  EXPECT_EQ(listOf(std::wstring(1, static_cast<wchar_t>(0xD83D)) + L"ffr"), list("FFR"));
}

TEST_F(OtherInfo, SendsAnEmptyListOfUnknownReasonsInTheNewFormat) {
  useNewFormat();
  for (const std::wstring& text :
       {std::wstring(L"XYZ"), std::wstring(L"H O S P"), std::wstring(L"\U0001F6E9"),
        std::wstring(100'000, L'H'), std::wstring(L"HO\0SP", 5)}) {
    info.STS(text);
    EXPECT_EQ(written(info), part("<ndd:sts/>"));
  }
}

TEST_F(OtherInfo, SendsTheKnownNavigationDesignatorsInTheNewFormat) {
  useNewFormat();
  const auto listOf = [&](std::wstring_view text) {
    info.PBN(text);
    return written(info);
  };
  const auto list = [](const std::string& text) { return part("<ndd:pbn>" + text + "</ndd:pbn>"); };
  EXPECT_EQ(listOf(L"A1B2C3D4"), list("A1 B2 C3 D4"));
  EXPECT_EQ(listOf(L"l1s2t1"), list("L1 S2 T1"));
  EXPECT_EQ(listOf(L"A1L1B1B2B3B4B5B6"), list("A1 L1 B1 B2 B3 B4 B5 B6"));
  EXPECT_EQ(listOf(L"C1C2C3C4D1D2D3D4O1O2O3O4"), list("C1 C2 C3 C4 D1 D2 D3 D4 O1 O2 O3 O4"));
  EXPECT_EQ(listOf(L"S1S2T1T2"), list("S1 S2 T1 T2"));
  EXPECT_EQ(listOf(L"a1/b7 d4"), list("A1 D4"));
}

TEST_F(OtherInfo, SendsAnEmptyListOfUnknownNavigationDesignatorsInTheNewFormat) {
  useNewFormat();
  for (const std::wstring& text :
       {std::wstring(L"B7"), std::wstring(L"O5"), std::wstring(L"A2"), std::wstring(L"L0"),
        std::wstring(L"S3T0"), std::wstring(L"A 1"), std::wstring(100'000, L'B')}) {
    info.PBN(text);
    EXPECT_EQ(written(info), part("<ndd:pbn/>"));
  }
}

TEST_F(OtherInfo, KnowsNoOtherNavigationDesignators) {
  useNewFormat();
  std::string known;
  const auto add = [&](const std::string& designator) {
    info.PBN(std::wstring(designator.begin(), designator.end()));
    if (written(info) != part("<ndd:pbn/>")) known += designator + ' ';
  };
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    add({letter});
    for (char digit = '0'; digit <= '9'; ++digit) add({letter, digit});
  }
  EXPECT_EQ(known, "A1 B1 B2 B3 B4 B5 B6 C1 C2 C3 C4 D1 D2 D3 D4 L1 O1 O2 O3 O4 S1 S2 T1 T2 ");
}

TEST_F(OtherInfo, CannotBeSentWithCharactersThatXmlDoesNotAllow) {
  info.RMK(std::wstring_view(L"a\0b", 3));
  EXPECT_EQ(test::faultOf([&] { (void)written(info); }), fault::invalidCall);
  info.RMK(std::wstring(1, static_cast<wchar_t>(0xD800)));
  EXPECT_EQ(test::faultOf([&] { (void)written(info); }), fault::invalidCall);
  info.RMK(L"\U0001F6E9 & co");
  EXPECT_EQ(written(info), part("<ndd:rmk>\xF0\x9F\x9B\xA9 &amp; CO</ndd:rmk>"));
}

TEST_F(OtherInfo, ReportsFailuresOfItsListsAndOfItself) {
  useNewFormat();
  info.STS(L"hosp medevac");
  info.PBN(L"a1 b2 c3 d4");
  const std::wstring className = L"ICAOOtherInfo";
  const auto outcomes = test::outcomesOfAppending(info);
  EXPECT_TRUE(outcomes.contains(test::outOfMemory(L"stsStringToList", className)));
  EXPECT_TRUE(outcomes.contains(test::outOfMemory(L"pbnStringToList", className)));
  for (const std::wstring& outcome : outcomes) {
    EXPECT_TRUE(outcome.ends_with(L" of Class Module " + className));
  }
  info.RMK(L"a remark too long to be stored in place");
  NAIPSConfig().NewFPLFormat(false);
  EXPECT_EQ(test::outcomesOfAppending(info),
            test::Outcomes{test::outOfMemory(L"IAppendable_appendTo", className)});
}

TEST_F(OtherInfo, KeepsWhatItWroteBeforeAFailure) {
  info.EET(L"an elapsed time too long to be stored in place");
  info.RMK(L"a remark too long to be stored in place");
  bool keptTheFirst = false;
  test::outcomesOfFailures([&] {
    const xml::Document document = xml::Document::create();
    const std::wstring schema = Deployment::current().schemaNamespace;
    return [&, schema, otherInfo = modBrevank::addElement(document, L"part", schema)] {
      info.appendTo(otherInfo, schema);
      const xml::Node only = otherInfo.firstChild();
      keptTheFirst = keptTheFirst || (only && only.name() == L"ndd:eet" && !only.nextSibling());
    };
  });
  EXPECT_TRUE(keptTheFirst);
}

}  // namespace
}  // namespace ktpnaips
