#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/text_items.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/date_time.h"
#include "tests/support/parts.h"

namespace ktpnaips {
namespace {

using test::part;
using test::written;

struct Sample {
  Property<std::wstring> Text;
  Property<bool> Switch;
  Property<std::int16_t> Number;
  Property<DateTime> Time{zeroDateTime};
};

/// A part of the sample's items that `items` lists.
class SamplePart : public IAppendable {
 public:
  SamplePart(const Sample& sample, std::vector<TextItem<Sample>> items)
      : sample_(sample), items_(std::move(items)) {}
  void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const override {
    addItems(parent, namespaceUri, sample_, items_);
  }

 private:
  const Sample& sample_;
  std::vector<TextItem<Sample>> items_;
};

std::wstring nothing(std::wstring_view) {
  return {};
}

std::wstring twice(std::wstring_view text) {
  return std::wstring(text) + std::wstring(text);
}

TEST(RequestText, WritesEachTypeAsRequestsCarryIt) {
  EXPECT_EQ(requestText(std::wstring_view(L" a ")), L" a ");
  EXPECT_EQ(requestText(true), L"true");
  EXPECT_EQ(requestText(false), L"false");
  EXPECT_EQ(requestText(std::int16_t{0}), L"0");
  EXPECT_EQ(requestText(std::int16_t{7}), L"7");
  EXPECT_EQ(requestText(std::numeric_limits<std::int16_t>::min()), L"-32768");
  EXPECT_EQ(requestText(test::at(2026, 3, 7, 1, 2, 3)), L"2026-03-07T01:02:03Z");
}

TEST(TextItems, AreWrittenInTheirOrder) {
  Sample sample;
  sample.Text(L" a ");
  sample.Switch(true);
  sample.Number(12);
  sample.Time(test::at(2026, 3, 7));
  EXPECT_EQ(written(SamplePart(sample, {{L"time", textOf<&Sample::Time>},
                                        {L"text", textOf<&Sample::Text>},
                                        {L"number", textOf<&Sample::Number>},
                                        {L"switch", textOf<&Sample::Switch>}})),
            part("<ndd:time>2026-03-07T00:00:00Z</ndd:time><ndd:text> a </ndd:text>"
                 "<ndd:number>12</ndd:number><ndd:switch>true</ndd:switch>"));
}

TEST(TextItems, AreLeftOutWhenEmptyOnlyIfTheySaySo) {
  Sample sample;
  const std::vector<TextItem<Sample>> items{
      {L"always", textOf<&Sample::Text>}, {L"sometimes", textOf<&Sample::Text>, Sent::unlessEmpty}};
  EXPECT_EQ(written(SamplePart(sample, items)), part("<ndd:always/>"));
  sample.Text(L"x");
  EXPECT_EQ(written(SamplePart(sample, items)),
            part("<ndd:always>x</ndd:always><ndd:sometimes>x</ndd:sometimes>"));
}

TEST(TextItems, AreJudgedByTheirTextAndNotByWhatIsWrittenForIt) {
  Sample sample;
  EXPECT_EQ(written(SamplePart(sample, {{L"a", textOf<&Sample::Text>, Sent::unlessEmpty, twice}})),
            test::nothingWritten);
  sample.Text(L"x");
  EXPECT_EQ(written(SamplePart(sample, {{L"a", textOf<&Sample::Text>, Sent::unlessEmpty, twice},
                                        {L"b", textOf<&Sample::Text>, Sent::unlessEmpty, nothing},
                                        {L"c", textOf<&Sample::Text>, Sent::always, nothing}})),
            part("<ndd:a>xx</ndd:a><ndd:b/><ndd:c/>"));
}

class Owner : public IAppendable {
 public:
  explicit Owner(const IAppendable* content) : content_(content) {}
  void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const override {
    addPart(parent, L"holder", namespaceUri, content_);
  }

 private:
  const IAppendable* content_;
};

TEST(NestedPart, FillsAnElementThatIsThereAnyway) {
  Sample sample;
  sample.Text(L"x");
  const SamplePart content(sample, {{L"a", textOf<&Sample::Text>}});
  EXPECT_EQ(written(Owner(&content)), part("<ndd:holder><ndd:a>x</ndd:a></ndd:holder>"));
  EXPECT_EQ(written(Owner(nullptr)), part("<ndd:holder/>"));
}

}  // namespace
}  // namespace ktpnaips
