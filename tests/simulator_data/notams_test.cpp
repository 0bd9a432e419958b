#include "simulator/data/notams.h"

#include <gtest/gtest.h>

#include <set>

#include "simulator/data/areas.h"
#include "simulator/data/general_met.h"

namespace {

TEST(Notams, AreManyAndHaveUniqueKeys) {
  std::set<std::string> keys;
  for (const sim::Notam& notam : sim::notams()) {
    EXPECT_TRUE(keys.insert(notam.key).second) << notam.key;
    EXPECT_LT(notam.from, notam.till);
    EXPECT_FALSE(notam.summary.empty());
    EXPECT_EQ(notam.text.back(), '\n');
    EXPECT_EQ(notam.text.find('\r'), std::string::npos);
    EXPECT_NE(notam.text.find("\nA) " + notam.location + '\n'), std::string::npos);
  }
  EXPECT_GE(keys.size(), 40U);
}

TEST(Notams, LieAtKnownPlaces) {
  for (const sim::Notam& notam : sim::notams()) {
    EXPECT_TRUE(notam.headOffice || sim::findLocation(notam.location) ||
                sim::findArea(notam.location))
        << notam.location;
  }
}

TEST(Notams, AreFoundByPlaceAndByKey) {
  const auto sydney = sim::notamsFor("yssy");
  ASSERT_EQ(sydney.size(), 3U);
  EXPECT_EQ(sim::findNotam(sydney[1]->key), sydney[1]);
  EXPECT_EQ(sim::findNotam("C9999/24-YSSY"), nullptr);
  EXPECT_FALSE(sim::notamsFor("YMMM").empty());
  EXPECT_FALSE(sim::headOfficeNotams().empty());
  EXPECT_TRUE(sim::notamsFor("YSHO").empty());
}

TEST(Notams, SayTheirPeriod) {
  const sim::Notam& first = sim::notams().front();
  EXPECT_EQ(first.key, "C1042/24-YSSY");
  EXPECT_EQ(first.text,
            "C1042/24 NOTAMN\nA) YSSY\nB) FROM 24 10 271000\nC) TO 35 11 291600 EST\n"
            "E) RWY 07/25 NOT AVBL DUE WIP\nBTN 1300 AND 1900 DAILY\n");
}

TEST(GeneralMet, MessagesAreFoundByNameAndType) {
  EXPECT_GE(sim::generalMetMessages().size(), 12U);
  for (const sim::GeneralMetMessage& message : sim::generalMetMessages()) {
    EXPECT_EQ(sim::findGeneralMet(message.name, message.type), &message);
    EXPECT_EQ(message.text.back(), '\n');
  }
  EXPECT_EQ(sim::findGeneralMet("NATIONAL WEATHER SUMMARY", "VAA"), nullptr);
}

}  // namespace
