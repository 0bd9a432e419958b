#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "cli/base64.h"
#include "cli/pack/html.h"
#include "cli/pack/pictures.h"
#include "cli/pack/text_parts.h"
#include "cli/pack/timeline.h"
#include "cli/pack/times.h"

namespace {

using namespace std::chrono_literals;
using cli::base64Of;
using cli::pack::mediaTypeOf;
using cli::pack::partsOf;
using cli::pack::SpanKind;
using ktpnaips::DateTime;

// Tuesday, 1 December 2026.
constexpr DateTime firstOfDecember =
    std::chrono::local_days{std::chrono::year{2026} / std::chrono::December / 1};

TEST(Html, EscapesWhatWouldBeMarkup) {
  EXPECT_EQ(cli::pack::escaped("<script>&\"' →"), "&lt;script&gt;&amp;&quot;&#39; →");
  EXPECT_EQ(cli::pack::element("td", "a<b", "class=\"x\""), "<td class=\"x\">a&lt;b</td>");
}

TEST(Times, AreWrittenAsPilotsReadThem) {
  EXPECT_EQ(cli::pack::timeText(firstOfDecember + 22h + 5min), "22:05Z");
  EXPECT_EQ(cli::pack::dayText(firstOfDecember), "Tue 1 Dec 2026");
  EXPECT_EQ(cli::pack::dayTimeText(firstOfDecember + 22h), "Tue 1 Dec 22:00Z");
  EXPECT_EQ(cli::pack::weekdayTimeText(firstOfDecember + 22h), "Tue 22:00Z");
  EXPECT_EQ(cli::pack::dateText(firstOfDecember + 22h), "2026-12-01");
  EXPECT_EQ(cli::pack::durationText(59), "59 min");
  EXPECT_EQ(cli::pack::durationText(125), "2 h 05 min");
}

TEST(Times, OfTheServiceAreReadWhereTheyAreDateTimes) {
  EXPECT_EQ(cli::pack::readTime("2026-12-01T22:00:00Z"), firstOfDecember + 22h);
  EXPECT_EQ(cli::pack::readTime("2200"), std::nullopt);
  EXPECT_EQ(cli::pack::readTime(""), std::nullopt);
}

TEST(Pictures, AreEncodedAsTheStandardSays) {
  EXPECT_EQ(base64Of(""), "");
  EXPECT_EQ(base64Of("f"), "Zg==");
  EXPECT_EQ(base64Of("fo"), "Zm8=");
  EXPECT_EQ(base64Of("foo"), "Zm9v");
  EXPECT_EQ(base64Of("foob"), "Zm9vYg==");
  EXPECT_EQ(base64Of("fooba"), "Zm9vYmE=");
  EXPECT_EQ(base64Of("foobar"), "Zm9vYmFy");
  EXPECT_EQ(base64Of("\xff\xfe\xfd"), "//79");
}

TEST(Pictures, AreKnownByTheirFirstBytes) {
  EXPECT_EQ(mediaTypeOf("\x89PNG\r\n\x1a\nrest"), "image/png");
  EXPECT_EQ(mediaTypeOf("GIF89a"), "image/gif");
  EXPECT_EQ(mediaTypeOf("\xff\xd8\xff\xe0"), "image/jpeg");
  EXPECT_EQ(mediaTypeOf("%PDF-1.7"), "application/pdf");
  EXPECT_EQ(mediaTypeOf("<html>"), "application/octet-stream");
}

TEST(TextParts, BeginAtUnderlinedLines) {
  const auto parts = partsOf("BULLETIN 1\n\nSTAGE 1\n-------\nTAF\n  X\n\nNOTAM\n=====\n");
  ASSERT_EQ(parts.size(), 3U);
  EXPECT_EQ(parts[0].heading, "");
  EXPECT_EQ(parts[0].text, "BULLETIN 1");
  EXPECT_EQ(parts[1].heading, "STAGE 1");
  EXPECT_EQ(parts[1].text, "TAF\n  X");
  EXPECT_EQ(parts[2].heading, "NOTAM");
  EXPECT_EQ(parts[2].text, "");
}

TEST(TextParts, ATextWithoutHeadingsIsOnePart) {
  const auto parts = partsOf("A\n--\nB");
  ASSERT_EQ(parts.size(), 1U);
  EXPECT_EQ(parts[0].text, "A\n--\nB");
  EXPECT_EQ(partsOf("").size(), 1U);
}

TEST(TextParts, ParagraphsLieBetweenEmptyLines) {
  EXPECT_EQ(cli::pack::paragraphsOf("\nA\nB\n\n \nC\n"), (std::vector<std::string>{"A\nB", "C"}));
}

TEST(TextParts, ATableHasLongLinesWithColumns) {
  const std::string word(50, 'X');
  EXPECT_TRUE(cli::pack::isTable("short\n" + word + "  " + word));
  EXPECT_FALSE(cli::pack::isTable(word + " " + word));
  EXPECT_FALSE(cli::pack::isTable("    " + word + " " + word));
  EXPECT_FALSE(cli::pack::isTable("A  B"));
}

std::vector<std::string> textsOf(const std::string& svg) {
  std::vector<std::string> texts;
  for (auto at = svg.find("<text"); at != std::string::npos; at = svg.find("<text", at + 1)) {
    const auto start = svg.find('>', at) + 1;
    texts.push_back(svg.substr(start, svg.find('<', start) - start));
  }
  return texts;
}

TEST(Timeline, ShowsDaysHoursAndTheTimesOfEachBar) {
  const auto svg = cli::pack::timelineSvg(
      {{"YSSY-YSCB", SpanKind::stage, {{firstOfDecember + 22h, firstOfDecember + 22h + 40min}}},
       {"YSSY light", SpanKind::light, {{firstOfDecember + 18h + 40min, firstOfDecember + 33h}}},
       {"Bulletin", SpanKind::validity, {{firstOfDecember + 20h, firstOfDecember + 72h}}}},
      {}, "told", "t");
  EXPECT_EQ(textsOf(svg),
            (std::vector<std::string>{
                "Tue 1 Dec",  "Wed 2 Dec",                                          // days
                "18",         "19",        "20",     "21", "22", "23", "00", "01",  // hours
                "02",         "03",        "04",     "05", "06", "07", "08", "09",  //
                "YSSY-YSCB",  "22:00Z",    "22:40Z",  // beside its bar
                "YSSY light", "18:40Z",    "09:00Z",  // inside
                "Bulletin",   "20:00Z"}));            // goes on
  EXPECT_NE(svg.find("<desc id=\"t-desc\">told</desc>"), std::string::npos);
}

TEST(Timeline, LeavesOutABarThatLiesElsewhere) {
  const auto svg = cli::pack::timelineSvg(
      {{"YSSY-YSCB", SpanKind::stage, {{firstOfDecember + 22h, firstOfDecember + 23h}}},
       {"Bulletin", SpanKind::validity, {{firstOfDecember - 72h, firstOfDecember - 48h}}}},
      {}, "", "t");
  EXPECT_EQ(svg.find("class=\"validity\""), std::string::npos);
  EXPECT_EQ(textsOf(svg).back(), "Bulletin");
}

}  // namespace
