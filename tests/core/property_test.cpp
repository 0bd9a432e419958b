#include <ktpnaips/core/property.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace ktpnaips {
namespace {

TEST(PropertyOfAnObject, HoldsTheZeroOfItsTypeAtFirst) {
  EXPECT_EQ(Property<std::int32_t>()(), 0);
  EXPECT_FALSE(Property<bool>()());
  EXPECT_EQ(Property<std::wstring>()(), L"");
}

TEST(PropertyOfAnObject, HoldsItsInitialValueUntilWritten) {
  Property<std::int16_t> number(std::int16_t{7});
  Property<std::wstring> text(L"orvalix");
  EXPECT_EQ(number(), 7);
  EXPECT_EQ(text(), L"orvalix");
  number(-3);
  text(L" As Given ");
  EXPECT_EQ(number(), -3);
  EXPECT_EQ(text(), L" As Given ");
}

TEST(PropertyOfAnObject, TrimsAndUpperCasesACleanedText) {
  Property<std::wstring, rule::Cleaned> text;
  text(L"  ymml   yssy ");
  EXPECT_EQ(text(), L"YMML   YSSY");
}

TEST(PropertyOfAnObject, MakesRunsOfSpacesSingleInACollapsedText) {
  Property<std::wstring, rule::Collapsed> text;
  text(L"  ymml   yssy ");
  EXPECT_EQ(text(), L"YMML YSSY");
}

TEST(PropertyOfAnObject, KeepsItsValueWhenANumberIsRefused) {
  Property<std::int32_t, rule::Within<-2, 5>> number;
  number(5);
  EXPECT_EQ(number(), 5);
  number(6);
  EXPECT_EQ(number(), 5);
  number(-2);
  EXPECT_EQ(number(), -2);
  number(-3);
  EXPECT_EQ(number(), -2);
}

class Owner {
 public:
  ReadOnly<std::wstring, Owner> Name;
  void fill() { Name.value = L"filled"; }
};

TEST(PropertyOfAnObject, IsFilledByItsOwnerAloneWhenReadOnly) {
  Owner owner;
  EXPECT_EQ(owner.Name(), L"");
  owner.fill();
  EXPECT_EQ(owner.Name(), L"filled");
}

}  // namespace
}  // namespace ktpnaips
