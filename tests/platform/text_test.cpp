#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <string_view>

namespace ktpnaips {
namespace {

using text::firstUnits;
using text::fromUtf8;
using text::toUpper;
using text::toUtf8;

TEST(UpperCase, ChangesTheLettersOfAsciiAlone) {
  EXPECT_EQ(toUpper(L"abcxyz ABC 019 @[`{"), L"ABCXYZ ABC 019 @[`{");
  EXPECT_EQ(toUpper(L""), L"");
}

TEST(UpperCase, ChangesLettersBeyondAscii) {
  EXPECT_EQ(toUpper(L"\u00e0\u00e9\u00f6\u00fe\u00ff"), L"\u00c0\u00c9\u00d6\u00de\u0178");
  EXPECT_EQ(toUpper(L"\u0101\u03b1\u03c9\u0430\u044f"), L"\u0100\u0391\u03a9\u0410\u042f");
}

TEST(UpperCase, NeverChangesTheLength) {
  EXPECT_EQ(toUpper(L"stra\u00dfe"), L"STRA\u00dfE");
  EXPECT_EQ(toUpper(L"\ufb01"), L"\ufb01");
}

TEST(UpperCase, LeavesSymbolsAlone) {
  EXPECT_EQ(toUpper(L"\u00f7\u20ac\u4e2d\U0001F6E9"), L"\u00f7\u20ac\u4e2d\U0001F6E9");
}

TEST(UpperCase, DoesNotDependOnTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"C", "", "tr_TR.UTF-8"}) {
    if (std::setlocale(LC_ALL, locale) == nullptr) continue;
    EXPECT_EQ(toUpper(L"i\u00e9"), L"I\u00c9");
  }
  std::setlocale(LC_ALL, before.c_str());
}

TEST(Utf8, CarriesEveryLengthOfCharacter) {
  const std::wstring wide = L"a\x7f\u0080\u07ff\u0800\ud7ff\ue000\uffff\U00010000\U0010FFFF";
  const std::string bytes =
      "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"
      "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
  EXPECT_EQ(toUtf8(wide), bytes);
  EXPECT_EQ(fromUtf8(bytes), wide);
}

TEST(Utf8, CarriesANul) {
  EXPECT_EQ(toUtf8(std::wstring(L"a\0b", 3)), std::string("a\0b", 3));
  EXPECT_EQ(fromUtf8(std::string("a\0b", 3)), std::wstring(L"a\0b", 3));
}

TEST(Utf8, HasAReplacementForALoneSurrogate) {
  for (const int unit : {0xD800, 0xDBFF, 0xDC00, 0xDFFF}) {
    const std::wstring lone(1, static_cast<wchar_t>(unit));
    EXPECT_EQ(toUtf8(lone + L"x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(toUtf8(L"x" + lone), "x\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(lone), "\xEF\xBF\xBD");
  }
}

TEST(Utf8, TakesOnlyAFirstAndASecondSurrogateForAPair) {
  const auto text = [](int first, int second) {
    return std::wstring{static_cast<wchar_t>(first), static_cast<wchar_t>(second)};
  };
  EXPECT_EQ(toUtf8(text(0xD800, 0xDBFF)), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(toUtf8(text(0xDBFF, 0xE000)), "\xEF\xBF\xBD\xEE\x80\x80");
  EXPECT_EQ(toUtf8(text(0xD7FF, 0xDC00)), "\xED\x9F\xBF\xEF\xBF\xBD");
  EXPECT_EQ(toUtf8(text(0xDC00, 0xDFFF)), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8, HasOneReplacementForEachByteThatIsNotUtf8) {
  const struct {
    std::string_view bytes;
    std::wstring_view wide;
  } cases[] = {
      {"a\x80z", L"a\ufffdz"},
      {"\xFF\xFE", L"\ufffd\ufffd"},
      {"\xC3", L"\ufffd"},
      {"\xE2\x82", L"\ufffd\ufffd"},
      {"\xE2\x82z", L"\ufffd\ufffdz"},
      {"\xF0\x9F\x9B", L"\ufffd\ufffd\ufffd"},
      {"\xC0\xAF", L"\ufffd\ufffd"},
      {"\xC1\x81", L"\ufffd\ufffd"},
      {"\xE0\x80\xAF", L"\ufffd\ufffd\ufffd"},
      {"\xF0\x80\x80\xAF", L"\ufffd\ufffd\ufffd\ufffd"},
      {"\xED\xA0\x80", L"\ufffd\ufffd\ufffd"},
      {"\xED\xBF\xBF", L"\ufffd\ufffd\ufffd"},
      {"\xF4\x90\x80\x80", L"\ufffd\ufffd\ufffd\ufffd"},
      {"\xE9t\xE9", L"\ufffdt\ufffd"},
  };
  for (const auto& each : cases) EXPECT_EQ(fromUtf8(each.bytes), each.wide);
}

TEST(FirstUnits, AreTheWholeOfAShortText) {
  EXPECT_EQ(firstUnits(L"abc", 3), L"abc");
  EXPECT_EQ(firstUnits(L"abc", 100), L"abc");
  EXPECT_EQ(firstUnits(L"", 5), L"");
}

TEST(FirstUnits, AreCutAtTheirNumber) {
  EXPECT_EQ(firstUnits(L"abc", 2), L"ab");
  EXPECT_EQ(firstUnits(L"abc", 0), L"");
}

TEST(FirstUnits, NeverHoldHalfACharacter) {
  const std::wstring_view text = L"a\U0001F6E9b";
  EXPECT_EQ(firstUnits(text, 1), L"a");
  EXPECT_EQ(firstUnits(text, 2), L"a");
  EXPECT_EQ(firstUnits(text, 3), L"a\U0001F6E9");
  EXPECT_EQ(firstUnits(text, 4), text);
}

}  // namespace
}  // namespace ktpnaips
