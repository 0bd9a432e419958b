#include <ktpnaips/core/collection.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/fault.h"

namespace ktpnaips {
namespace {

using Object = std::shared_ptr<int>;

class Objects final : public OpenCollection<Object> {
 public:
  using OpenCollection::clear;
};

class Texts final : public Collection<std::wstring> {
 public:
  using Collection::append;
};

TEST(ResponseCollection, IsEmptyAtFirst) {
  const Objects objects;
  EXPECT_EQ(objects.Count(), 0);
  EXPECT_EQ(objects.Item(1), nullptr);
  EXPECT_EQ(objects.begin(), objects.end());
}

TEST(ResponseCollection, CountsItsItemsFromOneInTheOrderAdded) {
  Objects objects;
  const auto first = std::make_shared<int>(1);
  const auto second = std::make_shared<int>(2);
  objects.Add(first);
  objects.Add(second);
  objects.Add(first);
  EXPECT_EQ(objects.Count(), 3);
  EXPECT_EQ(objects.Item(1), first);
  EXPECT_EQ(objects.Item(2), second);
  EXPECT_EQ(objects.Item(3), first);
}

TEST(ResponseCollection, GivesNoObjectOutsideOneToCount) {
  Objects objects;
  objects.Add(std::make_shared<int>(1));
  for (const std::int16_t index :
       {std::int16_t{0}, std::int16_t{-1}, std::int16_t{2},
        std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()}) {
    EXPECT_EQ(objects.Item(index), nullptr) << index;
  }
}

TEST(ResponseCollection, GivesAnEmptyTextOutsideOneToCount) {
  Texts texts;
  texts.append(L"a");
  EXPECT_EQ(texts.Item(1), L"a");
  EXPECT_EQ(texts.Item(0), L"");
  EXPECT_EQ(texts.Item(2), L"");
}

TEST(ResponseCollection, IgnoresAddingNoObject) {
  Objects objects;
  objects.Add(nullptr);
  EXPECT_EQ(objects.Count(), 0);
}

TEST(ResponseCollection, IsWalkedInOrder) {
  Objects objects;
  for (int i = 0; i < 3; ++i) objects.Add(std::make_shared<int>(i));
  std::vector<int> values;
  for (const auto& object : objects) values.push_back(*object);
  EXPECT_EQ(values, (std::vector{0, 1, 2}));
}

TEST(ResponseCollection, CountsUpTo32767AndOverflowsBeyond) {
  EXPECT_EQ(countOf(0), 0);
  EXPECT_EQ(countOf(32767), 32767);
  EXPECT_EQ(test::faultOf([] { (void)countOf(32768); }), fault::overflow);
  EXPECT_EQ(test::faultOf([] { (void)countOf(65536); }), fault::overflow);
  EXPECT_EQ(test::faultOf([] { (void)countOf(std::numeric_limits<std::size_t>::max()); }),
            fault::overflow);
}

TEST(ResponseCollection, StillGivesAndWalksItsItemsWhenTheyAreTooManyToCount) {
  Texts texts;
  for (int i = 1; i <= 32768; ++i) texts.append(std::to_wstring(i));
  EXPECT_EQ(test::faultOf([&] { (void)texts.Count(); }), fault::overflow);
  EXPECT_EQ(texts.Item(32767), L"32767");
  EXPECT_EQ(std::distance(texts.begin(), texts.end()), 32768);
}

TEST(RequestList, DropsSilentlyWhatIsBeyondItsLimit) {
  std::vector<int> list;
  for (int i = 1; i <= 4; ++i) addWithin(3, list, i);
  EXPECT_EQ(list, (std::vector{1, 2, 3}));
}

}  // namespace
}  // namespace ktpnaips
