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

struct ItemsSample {
  Property<std::wstring> Text;
  Property<bool> Switch;
  Property<std::int16_t> Number;
  Property<DateTime> Time{zeroDateTime};
};

/// A part of the sample's items that `items` lists.
class ItemsPart : public IAppendable {
 public:
  ItemsPart(const ItemsSample& sample, std::vector<TextItem<ItemsSample>> items)
      : sample_(sample), items_(std::move(items)) {}
  void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const override {
    addItems(parent, namespaceUri, sample_, items_);
  }

 private:
  const ItemsSample& sample_;
  std::vector<TextItem<ItemsSample>> items_;
};

std::wstring emptied(std::wstring_view) {
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
  ItemsSample sample;
  sample.Text(L" a ");
  sample.Switch(true);
  sample.Number(12);
  sample.Time(test::at(2026, 3, 7));
  EXPECT_EQ(written(ItemsPart(sample, {{L"time", textOf<&ItemsSample::Time>},
                                       {L"text", textOf<&ItemsSample::Text>},
                                       {L"number", textOf<&ItemsSample::Number>},
                                       {L"switch", textOf<&ItemsSample::Switch>}})),
            part("<ndd:time>2026-03-07T00:00:00Z</ndd:time><ndd:text> a </ndd:text>"
                 "<ndd:number>12</ndd:number><ndd:switch>true</ndd:switch>"));
}

TEST(TextItems, AreLeftOutWhenEmptyOnlyIfTheySaySo) {
  ItemsSample sample;
  const std::vector<TextItem<ItemsSample>> items{
      {L"always", textOf<&ItemsSample::Text>},
      {L"sometimes", textOf<&ItemsSample::Text>, Sent::unlessEmpty}};
  EXPECT_EQ(written(ItemsPart(sample, items)), part("<ndd:always/>"));
  sample.Text(L"x");
  EXPECT_EQ(written(ItemsPart(sample, items)),
            part("<ndd:always>x</ndd:always><ndd:sometimes>x</ndd:sometimes>"));
}

TEST(TextItems, AreJudgedByTheirTextAndNotByWhatIsWrittenForIt) {
  ItemsSample sample;
  EXPECT_EQ(
      written(ItemsPart(sample, {{L"a", textOf<&ItemsSample::Text>, Sent::unlessEmpty, twice}})),
      test::nothingWritten);
  sample.Text(L"x");
  EXPECT_EQ(
      written(ItemsPart(sample, {{L"a", textOf<&ItemsSample::Text>, Sent::unlessEmpty, twice},
                                 {L"b", textOf<&ItemsSample::Text>, Sent::unlessEmpty, emptied},
                                 {L"c", textOf<&ItemsSample::Text>, Sent::always, emptied}})),
      part("<ndd:a>xx</ndd:a><ndd:b/><ndd:c/>"));
}

class ItemsHolder : public IAppendable {
 public:
  explicit ItemsHolder(const IAppendable* content) : content_(content) {}
  void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const override {
    addPart(parent, L"holder", namespaceUri, content_);
  }

 private:
  const IAppendable* content_;
};

TEST(NestedPart, FillsAnElementThatIsThereAnyway) {
  ItemsSample sample;
  sample.Text(L"x");
  const ItemsPart content(sample, {{L"a", textOf<&ItemsSample::Text>}});
  EXPECT_EQ(written(ItemsHolder(&content)), part("<ndd:holder><ndd:a>x</ndd:a></ndd:holder>"));
  EXPECT_EQ(written(ItemsHolder(nullptr)), part("<ndd:holder/>"));
}

}  // namespace
}  // namespace ktpnaips
