#include <ktpnaips/core/flag_word.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "tests/support/fault.h"

namespace ktpnaips {
namespace {

TEST(FlagWordOfARequest, StartsClear) {
  const FlagWord word;
  for (std::int32_t bit = 0; bit <= 30; ++bit) EXPECT_FALSE(word.flag(bit)) << bit;
}

TEST(FlagWordOfARequest, SetsAndClearsEachBitAlone) {
  for (std::int32_t bit = 0; bit <= 30; ++bit) {
    FlagWord word;
    word.setFlag(bit, true);
    for (std::int32_t other = 0; other <= 30; ++other) {
      EXPECT_EQ(word.flag(other), other == bit) << bit << ' ' << other;
    }
    word.setFlag(bit, false);
    EXPECT_FALSE(word.flag(bit)) << bit;
  }
}

TEST(FlagWordOfARequest, KeepsTheOtherBitsWhenOneIsCleared) {
  FlagWord word(0x7FFFFFFF);
  word.setFlag(3, false);
  for (std::int32_t bit = 0; bit <= 30; ++bit) EXPECT_EQ(word.flag(bit), bit != 3) << bit;
}

TEST(FlagWordOfARequest, IsUnchangedByClearingAClearBitOrSettingASetOne) {
  FlagWord word(5);
  word.setFlag(1, false);
  word.setFlag(2, true);
  EXPECT_TRUE(word.flag(0));
  EXPECT_FALSE(word.flag(1));
  EXPECT_TRUE(word.flag(2));
}

TEST(FlagWordOfARequest, ReadsFalseAndChangesNothingAtANegativeNumber) {
  for (const std::int32_t bit : {-1, -2, -31, -32, std::numeric_limits<std::int32_t>::min()}) {
    FlagWord word(0x7FFFFFFF);
    EXPECT_FALSE(word.flag(bit));
    word.setFlag(bit, false);
    for (std::int32_t each = 0; each <= 30; ++each) EXPECT_TRUE(word.flag(each));
    FlagWord clear;
    clear.setFlag(bit, true);
    for (std::int32_t each = 0; each <= 30; ++each) EXPECT_FALSE(clear.flag(each));
  }
}

TEST(FlagWordOfARequest, OverflowsFromBit31On) {
  FlagWord word;
  for (const std::int32_t bit : {31, 32, 33, 64, 1024, std::numeric_limits<std::int32_t>::max()}) {
    EXPECT_EQ(test::faultOf([&] { (void)word.flag(bit); }), fault::overflow) << bit;
    EXPECT_EQ(test::faultOf([&] { word.setFlag(bit, true); }), fault::overflow) << bit;
    EXPECT_EQ(test::faultOf([&] { word.setFlag(bit, false); }), fault::overflow) << bit;
  }
  for (std::int32_t bit = 0; bit <= 30; ++bit) EXPECT_FALSE(word.flag(bit)) << bit;
}

}  // namespace
}  // namespace ktpnaips
