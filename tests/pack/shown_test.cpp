#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "cli/base64.h"
#include "cli/characters.h"
#include "cli/secrets.h"

/// What naips lets through to a terminal, a page and a log.
namespace {

using cli::harmless;
using cli::withoutSecrets;

TEST(Characters, AreReadOneByOne) {
  const std::string text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x9B\xA9";
  const char32_t expected[] = {'a', 0xE9, 0x20AC, 0x1F6E9};
  std::size_t at = 0;
  for (const char32_t code : expected) {
    const cli::Character character = cli::characterAt(text, at);
    EXPECT_EQ(character.code, code);
    at += character.length;
  }
  EXPECT_EQ(at, text.size());
  EXPECT_EQ(cli::characterAt(text, at).length, 0U);
}

TEST(Characters, ThatATerminalActsOnAreNotShown) {
  EXPECT_EQ(harmless("one\ttwo\nthree \xE2\x86\x92 caf\xC3\xA9"),
            "one\ttwo\nthree \xE2\x86\x92 caf\xC3\xA9");
  EXPECT_EQ(harmless("\x1B[31mred\x7F\r\b"), "?[31mred???");
  EXPECT_EQ(harmless("\xC2\x9B"
                     "31m \xC2\x80 \xC2\x9F \xC2\xA0"),
            "?31m ? ? \xC2\xA0");
  EXPECT_EQ(harmless("\xE2\x80\xAE"
                     "abc\xE2\x80\xAC \xE2\x81\xA6x\xE2\x81\xA9 \xE2\x80\x8E"),
            "?abc? ?x? ?");
  EXPECT_EQ(harmless("\xFF\xC3 \xE2\x82"), "?? ??");
}

class Secrets : public testing::Test {
 protected:
  static constexpr std::string_view secret = "p<&'\"é +/\\9W";
  static void SetUpTestSuite() { cli::conceal(secret); }

  static void isHidden(const std::string& form) {
    EXPECT_EQ(withoutSecrets("before " + form + " after"), "before ******** after") << form;
  }
};

TEST_F(Secrets, AreNotShownAsTheyStand) {
  isHidden(std::string(secret));
  EXPECT_EQ(withoutSecrets(secret), "********");
  EXPECT_EQ(withoutSecrets("p<&'\"é +/\\9"), "p<&'\"é +/\\9");
  EXPECT_EQ(withoutSecrets(""), "");
}

TEST_F(Secrets, AreNotShownEscaped) {
  isHidden("p&lt;&amp;&apos;&quot;é +/\\9W");
  isHidden("p&#60;&#38;&#39;&#34;&#233; +/\\9W");
  isHidden("p&#x3C;&#x26;&#X27;&#x22;&#xe9;&#x20;+/\\9W");
  isHidden("p%3C%26%27%22%C3%A9%20%2B%2F%5C9W");
  isHidden("p%3c%26%27%22%c3%a9%20%2b%2f%5c9W");
  isHidden("p%3C%26'%22%C3%A9++/\\9W");
  isHidden(R"(p<&'\"é +/\\9W)");
  isHidden(R"(p\u003c\u0026\u0027\u0022\u00e9 +\/\\9W)");
}

TEST_F(Secrets, AreNotShownEscapedTwice) {
  isHidden("p&amp;lt;&amp;amp;&amp;apos;&amp;quot;é +/\\9W");
  isHidden("p&amp;#60;&amp;#38;&amp;#39;&amp;#34;é +/\\9W");
  isHidden("p%253C%2526%2527%2522%25C3%25A9%2520%252B%252F%255C9W");
  isHidden(R"(p&lt;&amp;&apos;\"é +/\\9W)");
  isHidden(R"(p<&'\\\"é +/\\\\9W)");
  isHidden(R"(p\\u003c\\u0026\\u0027\\u0022é +/\\\\9W)");
}

TEST_F(Secrets, AreNotShownInBase64) {
  for (const std::string before : {"", "a", "ab", "user:", "PILOT1:"}) {
    for (const std::string after : {"", "\n", "\r\n", ", and more"}) {
      const std::string all = before + std::string(secret) + after;
      const std::string shown = withoutSecrets(cli::base64Of(all));
      EXPECT_NE(shown.find("********"), shown.npos) << before << after;
      // What is left at the ends are parts of two characters at most.
      EXPECT_LE(shown.size(), cli::base64Of(before).size() + cli::base64Of(after).size() + 16);
    }
  }
}

TEST_F(Secrets, OfThreeCharactersAreLeft) {
  cli::conceal("abc");
  cli::conceal("");
  EXPECT_EQ(withoutSecrets("abc"), "abc");
}

}  // namespace
