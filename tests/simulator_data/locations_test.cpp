#include "simulator/data/locations.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "simulator/data/areas.h"
#include "simulator/data/routes.h"

namespace {

TEST(Locations, AreManyAndOrderedByUniqueCodes) {
  const auto all = sim::locations();
  const auto aerodromes =
      std::ranges::count_if(all, [](const sim::Location& l) { return l.kind == 'A'; });
  EXPECT_GE(aerodromes, 70);
  EXPECT_GE(static_cast<long>(all.size()) - aerodromes, 12);
  for (std::size_t i = 1; i < all.size(); ++i) {
    EXPECT_LT(all[i - 1].code, all[i].code);
  }
}

TEST(Locations, LieInTheAustralianRegion) {
  for (const sim::Location& l : sim::locations()) {
    EXPECT_TRUE(l.latitude > -45 && l.latitude < -9) << l.code;
    EXPECT_TRUE(l.longitude > 95 && l.longitude < 169) << l.code;
    EXPECT_NE(sim::findArea(l.area), nullptr) << l.code;
  }
}

TEST(Locations, HaveTrueCoordinates) {
  struct Known {
    const char* code;
    double latitude, longitude;
  };
  for (const Known& known : {Known{"YSSY", -33.946, 151.177},
                             {"YMML", -37.673, 144.843},
                             {"YBBN", -27.384, 153.117},
                             {"YPPH", -31.940, 115.967},
                             {"YPDN", -12.415, 130.877},
                             {"YMHB", -42.836, 147.510}}) {
    const sim::Location* found = sim::findLocation(known.code);
    ASSERT_NE(found, nullptr) << known.code;
    EXPECT_NEAR(found->latitude, known.latitude, 0.01);
    EXPECT_NEAR(found->longitude, known.longitude, 0.01);
  }
}

TEST(Locations, AreFoundWhateverTheCase) {
  EXPECT_EQ(sim::findLocation("yssy"), sim::findLocation("YSSY"));
  EXPECT_EQ(sim::findLocation("YSS"), nullptr);
  EXPECT_EQ(sim::findLocation(""), nullptr);
}

TEST(Locations, SearchPutsCodesBeforeNames) {
  const auto found = sim::search("sy");
  ASSERT_GE(found.size(), 3U);
  EXPECT_EQ(found.front()->code, "SY");
  EXPECT_NE(std::ranges::find(found, sim::findLocation("YSBK")), found.end());
  EXPECT_TRUE(sim::search("").empty());
  EXPECT_TRUE(sim::search("QQQ").empty());
}

TEST(Areas, AreKnownByNameAndByNumber) {
  for (const char* code :
       {"20", "21", "22", "30", "40", "60", "NSW-E", "VIC-W", "VIC", "TAS", "YMMM", "YBBB"}) {
    const sim::ForecastArea* area = sim::findArea(code);
    ASSERT_NE(area, nullptr) << code;
    EXPECT_FALSE(area->locationCodes.empty()) << code;
  }
  EXPECT_EQ(sim::findArea("nsw-e"), sim::findArea("NSW-E"));
  EXPECT_EQ(sim::findArea("99"), nullptr);
}

TEST(Areas, NameKnownLocations) {
  for (const sim::ForecastArea& area : sim::areas()) {
    for (const auto code : area.locationCodes) {
      EXPECT_NE(sim::findLocation(code), nullptr) << code;
    }
  }
}

TEST(Areas, BelongToARegion) {
  EXPECT_EQ(sim::firOf(*sim::findLocation("YSSY")), "YMMM");
  EXPECT_EQ(sim::firOf(*sim::findLocation("YBBN")), "YBBB");
  EXPECT_EQ(sim::firOf(*sim::findLocation("YPDN")), "YBBB");
  EXPECT_EQ(sim::firOf(*sim::findArea("70")), "YMMM");
}

TEST(Routes, AreListedByTheirEnds) {
  EXPECT_GE(sim::routes().size(), 12U);
  EXPECT_EQ(sim::routesBetween("yssy", "ymml", true).size(), 2U);
  EXPECT_EQ(sim::routesBetween("YSSY", "NZAA", true).size(), 0U);
  EXPECT_EQ(sim::routesBetween("YSSY", "NZAA", false).size(), 1U);
  EXPECT_EQ(sim::routesBetween("", "", false).size(), sim::routes().size());
}

TEST(Routes, BetweenSydneyMelbourneAndCanberraLeadOverKnownPoints) {
  for (const char* code : {"RAZZI", "LIZZI", "TESAT", "SNOWY", "DOSEL", "RIVET", "NONIX", "CULIN",
                           "AVBEG", "WOL", "CB"}) {
    EXPECT_NE(sim::findLocation(code), nullptr) << code;
  }
}

TEST(Routes, AreFoundByCode) {
  ASSERT_NE(sim::findRoute("YSSY", "YMML", "a1"), nullptr);
  EXPECT_EQ(sim::findRoute("YSSY", "YMML", "A1")->waypoints, "DCT WOL H65 RAZZI Q29 LIZZI DCT");
  EXPECT_EQ(sim::findRoute("YSSY", "YMML", "Z9"), nullptr);
}

}  // namespace
