#include <ktpnaips/briefing/base64.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

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

/// The rules, one character after the other. Nothing when the text is refused.
std::optional<std::string> decodedPlainly(std::wstring text) {
  std::erase_if(text, [](wchar_t c) { return c == L'\r' || c == L'\n'; });
  if (text.empty() || text.size() % 4 != 0) return std::nullopt;
  constexpr std::wstring_view alphabet =
      L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bytes;
  std::uint32_t group = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto digit = alphabet.find(text[at]);
    group = group << 6U | static_cast<std::uint32_t>(digit < alphabet.size() ? digit : 0);
    if (at % 4 != 3) continue;
    for (const unsigned shift : {16U, 8U, 0U}) {
      bytes += static_cast<char>(static_cast<unsigned char>(group >> shift & 0xFFU));
    }
    group = 0;
  }
  const bool padded = text.find(L'=') != std::wstring::npos;
  const bool paddedTwice = text.find(L"==") != std::wstring::npos;
  bytes.resize(bytes.size() - (paddedTwice ? 2 : padded ? 1 : 0));
  return bytes;
}

/// What decoding gives, or nothing when it faults.
template <class Text>
std::optional<std::string> outcomeOf(const Text& text) {
  try {
    return Enc64::MyDecode(text);
  } catch (const RuntimeFault&) {
    return std::nullopt;
  }
}

TEST(Base64, DecodesAnyTextAsThePlainRulesDo) {
  const std::vector<std::wstring> pieces = {
      L"A",      L"z",     L"9", L"+",  L"/", L"QUJD", L"/+Az", L"TWFuTWFuTWFuTWFu",    L"\r\n",
      L"\n",     L"\r",    L"=", L"==", L" ", L"-",    L"*",    std::wstring(1, L'\0'), L"\u00e9",
      L"\u20ac", L"\u0141"};
  std::mt19937 random(1);
  for (int i = 0; i < 20'000; ++i) {
    // Most texts are clean for a long while, as those of charts; some are anything but.
    const auto likely = i % 2 == 0 ? 11U : static_cast<unsigned>(pieces.size());
    std::wstring text;
    for (auto left = random() % 60; left > 0; --left) {
      text += pieces[random() % (random() % 8 == 0 ? pieces.size() : likely)];
    }
    if (random() % 2 == 0) {
      while ((text.size() - static_cast<std::size_t>(std::ranges::count_if(
                                text, [](wchar_t c) { return c == L'\r' || c == L'\n'; }))) %
                 4 !=
             0) {
        text += L'=';
      }
    }
    const auto expected = decodedPlainly(text);
    EXPECT_EQ(outcomeOf(std::wstring_view(text)), expected);
    EXPECT_EQ(outcomeOf(std::string_view(text::toUtf8(text))), expected);
  }
}

TEST(Base64, DecodesEveryCharacterAtEveryPlaceOfALongLine) {
  const std::wstring clean = L"QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVphYmNkZWZnaGlqa2xtbm9wcXJzdHV2";
  for (std::size_t place = 0; place < clean.size(); ++place) {
    for (wchar_t code = 0; code <= 0xFF; ++code) {
      std::wstring text = clean;
      text[place] = code;
      const auto expected = decodedPlainly(text);
      EXPECT_EQ(outcomeOf(std::wstring_view(text)), expected)
          << place << ' ' << static_cast<int>(code);
      EXPECT_EQ(outcomeOf(std::string_view(text::toUtf8(text))), expected)
          << place << ' ' << static_cast<int>(code);
    }
  }
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
