#include <ktpnaips/core/naips_config.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <thread>

#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

class NaipsConfig : public testing::Test {
 private:
  test::FreshSettings settings_;
};

TEST_F(NaipsConfig, StartsAtTheDefaults) {
  const NAIPSConfig config;
  EXPECT_EQ(config.Mode(), 0);
  EXPECT_EQ(config.UserName(), L"");
  EXPECT_EQ(config.Password(), L"");
  EXPECT_FALSE(config.NewFPLFormat());
  EXPECT_FALSE(config.UseProxy());
  EXPECT_FALSE(config.DisableICAO());
}

TEST_F(NaipsConfig, StoresTheUserNameUpperCasedAndTrimmed) {
  NAIPSConfig config;
  config.UserName(L" pilot1 ");
  EXPECT_EQ(config.UserName(), L"PILOT1");
  config.UserName(L"  jane  doe  ");
  EXPECT_EQ(config.UserName(), L"JANE  DOE");
  config.UserName(L"   ");
  EXPECT_EQ(config.UserName(), L"");
}

TEST_F(NaipsConfig, TrimsOnlySpacesFromTheUserName) {
  NAIPSConfig config;
  config.UserName(L" \tpilot\n ");
  EXPECT_EQ(config.UserName(), L"\tPILOT\n");
}

TEST_F(NaipsConfig, UpperCasesLettersBeyondAscii) {
  NAIPSConfig config;
  config.UserName(L"j\u00f6rg \u0434");
  EXPECT_EQ(config.UserName(), L"J\u00d6RG \u0414");
}

TEST_F(NaipsConfig, StoresThePasswordUnchanged) {
  NAIPSConfig config;
  config.Password(L" Secret ");
  EXPECT_EQ(config.Password(), L" Secret ");
}

TEST_F(NaipsConfig, StoresAnyMode) {
  NAIPSConfig config;
  for (const std::int32_t mode : {1, 2, 3, -1, std::numeric_limits<std::int32_t>::max(),
                                  std::numeric_limits<std::int32_t>::min(), 0}) {
    config.Mode(mode);
    EXPECT_EQ(config.Mode(), mode);
  }
}

TEST_F(NaipsConfig, HoldsTheThreeSwitchesApart) {
  NAIPSConfig config;
  config.NewFPLFormat(true);
  EXPECT_TRUE(config.NewFPLFormat());
  EXPECT_FALSE(config.UseProxy());
  EXPECT_FALSE(config.DisableICAO());
  config.UseProxy(true);
  config.NewFPLFormat(false);
  EXPECT_FALSE(config.NewFPLFormat());
  EXPECT_TRUE(config.UseProxy());
  EXPECT_FALSE(config.DisableICAO());
  config.DisableICAO(true);
  config.UseProxy(false);
  EXPECT_FALSE(config.UseProxy());
  EXPECT_TRUE(config.DisableICAO());
}

TEST_F(NaipsConfig, SharesItsValuesWithEveryObjectOfTheThread) {
  NAIPSConfig one;
  const NAIPSConfig other;
  one.Mode(2);
  one.UserName(L"pilot1");
  one.Password(L"pw");
  one.NewFPLFormat(true);
  one.UseProxy(true);
  one.DisableICAO(true);
  EXPECT_EQ(other.Mode(), 2);
  EXPECT_EQ(other.UserName(), L"PILOT1");
  EXPECT_EQ(other.Password(), L"pw");
  EXPECT_TRUE(other.NewFPLFormat());
  EXPECT_TRUE(other.UseProxy());
  EXPECT_TRUE(other.DisableICAO());
}

TEST_F(NaipsConfig, StartsAtTheDefaultsOnEveryThread) {
  NAIPSConfig config;
  config.Mode(1);
  config.UserName(L"pilot1");
  config.Password(L"pw");
  config.UseProxy(true);
  std::thread([] {
    const NAIPSConfig own;
    EXPECT_EQ(own.Mode(), 0);
    EXPECT_EQ(own.UserName(), L"");
    EXPECT_EQ(own.Password(), L"");
    EXPECT_FALSE(own.UseProxy());
  }).join();
}

TEST_F(NaipsConfig, NeverShowsTheValuesOfAnotherThread) {
  const auto writeAndRead = [](std::int32_t mode, const std::wstring& user) {
    NAIPSConfig config;
    for (int i = 0; i < 1000; ++i) {
      config.Mode(mode);
      config.UserName(user);
      std::this_thread::yield();
      ASSERT_EQ(config.Mode(), mode);
      ASSERT_EQ(config.UserName(), user);
    }
  };
  std::thread first(writeAndRead, 1, L"A-USER-WITH-A-LONG-NAME");
  std::thread second(writeAndRead, 2, L"B-USER-WITH-A-LONG-NAME");
  first.join();
  second.join();
  EXPECT_EQ(NAIPSConfig().Mode(), 0);
  EXPECT_EQ(NAIPSConfig().UserName(), L"");
}

}  // namespace
}  // namespace ktpnaips
