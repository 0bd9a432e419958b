#include <ktpnaips/platform/http_address.h>

#include <gtest/gtest.h>

#include <string>

namespace ktpnaips {
namespace {

TEST(HostName, MayHaveLettersOfEveryLanguage) {
  EXPECT_TRUE(http::canBeHostName("naips.example"));
  EXPECT_TRUE(http::canBeHostName("naips-\u00e9t\u00e9.example"));
  for (int byte = 0x80; byte <= 0xFF; ++byte)
    EXPECT_TRUE(http::canBeHostName(std::string("a") + static_cast<char>(byte))) << byte;
}

TEST(HostName, HasNoSpacesAndControlCharacters) {
  for (int byte = 0; byte <= 0x20; ++byte)
    EXPECT_FALSE(http::canBeHostName(std::string("a") + static_cast<char>(byte))) << byte;
  EXPECT_FALSE(http::canBeHostName("a\x7f"));
}

}  // namespace
}  // namespace ktpnaips
