#include <ktpnaips/briefing/base64.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tests/support/fault.h"

namespace ktpnaips {
namespace {

/// Decodes the text in both forms in which a DOM may hold it, which must give the same.
std::string decoded(std::string_view text) {
  const std::string bytes = Enc64::MyDecode(text);
  EXPECT_EQ(Enc64::MyDecode(std::wstring(text.begin(), text.end())), bytes);
  return bytes;
}

std::int32_t faultOf(std::string_view text) {
  const auto number = test::faultOf([&] { Enc64::MyDecode(text); });
  EXPECT_EQ(test::faultOf([&] { Enc64::MyDecode(std::wstring(text.begin(), text.end())); }),
            number);
  return number;
}

TEST(Base64, DecodesWholeGroups) {
  EXPECT_EQ(decoded("QUJD"), "ABC");
  EXPECT_EQ(decoded("QUJDREVG"), "ABCDEF");
}

TEST(Base64, CutsOneByteForOnePadAndTwoForADoubleOne) {
  EXPECT_EQ(decoded("QUI="), "AB");
  EXPECT_EQ(decoded("QQ=="), "A");
}

TEST(Base64, IgnoresCarriageReturnsAndLineFeeds) {
  EXPECT_EQ(decoded("QU\r\nJD"), "ABC");
  EXPECT_EQ(decoded("\nQ\rU\n\nJ\r\rD\r\n"), "ABC");
  EXPECT_EQ(decoded("QQ=\r\n="), "A");
}

TEST(Base64, FaultsWhenTheLengthIsNoMultipleOfFour) {
  for (const char* text : {"QUJ", "Q", "QU", "QUJDR", "QUJD ", "QU\r\nJ", "QU JD"}) {
    EXPECT_EQ(faultOf(text), -2147221504) << text;
  }
  try {
    Enc64::MyDecode(std::string_view("QUJ"));
    FAIL();
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), -2147221504);
    EXPECT_EQ(fault.description(), L"Input string is not valid Base64.");
  }
}

TEST(Base64, FaultsWhenNothingIsLeftToDecode) {
  EXPECT_EQ(faultOf(""), fault::subscriptOutOfRange);
  EXPECT_EQ(faultOf("\r\n\n"), fault::subscriptOutOfRange);
}

TEST(Base64, CutsBytesFromTheEndWhereverThePadStands) {
  EXPECT_EQ(decoded("QU==QUJD"), std::string("A@\0A", 4));
  EXPECT_EQ(decoded("=UJDQUJD"), std::string("\x01\x42\x43"
                                             "AB"));
  EXPECT_EQ(decoded("===="), std::string(1, '\0'));
  EXPECT_EQ(decoded("=A=A").size(), 2U);
  EXPECT_EQ(decoded("Q=A=Q==A").size(), 4U);
}

TEST(Base64, DecodesOtherCharactersAsZeroBits) {
  EXPECT_EQ(decoded("QU*D"), std::string("A@\x03", 3));
  EXPECT_EQ(decoded("    "), std::string(3, '\0'));
  EXPECT_EQ(decoded("\t-_."), std::string(3, '\0'));
  EXPECT_EQ(decoded("AAAA"), std::string(3, '\0'));
}

TEST(Base64, GivesEveryCharacterOfItsAlphabetItsValue) {
  const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  for (std::size_t value = 0; value < alphabet.size(); ++value) {
    const std::string bytes = decoded(std::string("AAA") + alphabet[value]);
    EXPECT_EQ(bytes, (std::string{'\0', '\0', static_cast<char>(value)}));
  }
}

TEST(Base64, DecodesAllByteValues) {
  EXPECT_EQ(decoded("AP+AfwE="), std::string("\x00\xFF\x80\x7F\x01", 5));
  EXPECT_EQ(decoded("////"), "\xFF\xFF\xFF");
}

TEST(Base64, CountsCharactersAndNotBytes) {
  EXPECT_EQ(Enc64::MyDecode(L"QU\u00e9D"), std::string("A@\x03", 3));
  EXPECT_EQ(Enc64::MyDecode(std::string_view("QU\xC3\xA9"
                                             "D")),
            std::string("A@\x03", 3));
  EXPECT_EQ(Enc64::MyDecode(std::string_view("QU\xE2\x82\xAC"
                                             "D")),
            std::string("A@\x03", 3));
  EXPECT_EQ(test::faultOf([] { Enc64::MyDecode(std::string_view("QU\xC3\xA9")); }), -2147221504);
  EXPECT_EQ(test::faultOf([] { Enc64::MyDecode(L"QU\u00e9"); }), -2147221504);
  EXPECT_EQ(test::faultOf([] { Enc64::MyDecode(L"\u00e9"); }), -2147221504);
}

TEST(Base64, DecodesAChartOfManyMegabytes) {
  std::string text;
  for (int line = 0; line < 200'000; ++line) {
    text.append("QUJD", 4).append(15, 'x').append("QUJDQUJDQUJDQUJDQUJDQUJDQUJDQUJDQUJDQUJD", 40);
    text.append("y\r\n");
  }
  EXPECT_EQ(Enc64::MyDecode(std::string_view(text)).size(), 200'000U * 45U);
}

}  // namespace
}  // namespace ktpnaips
