#include "cli/pack/great_circle.h"

#include <gtest/gtest.h>

namespace {

using cli::pack::destinationOf;
using cli::pack::distanceBetween;
using cli::pack::Position;
using cli::pack::positionBetween;
using cli::pack::trackBetween;

// A worked example that textbooks use: 0.623585 radians on an initial course of 1.150035 radians.
constexpr Position losAngeles{33.95, -118.4};
constexpr Position newYork{40.0 + 38.0 / 60, -(73.0 + 47.0 / 60)};
constexpr double earthRadius = 3440.0695;  // nautical miles

TEST(GreatCircle, ADegreeOfLatitudeIsSixtyMiles) {
  EXPECT_NEAR(distanceBetween({-34, 151}, {-35, 151}), 60.04, 0.01);
}

TEST(GreatCircle, AQuarterOfTheEquatorIsTheSameWayRoundAsAQuarterOfAMeridian) {
  EXPECT_NEAR(distanceBetween({0, 0}, {0, 90}), 5403.65, 0.05);
  EXPECT_NEAR(distanceBetween({0, 12}, {90, 77}), 5403.65, 0.05);
}

TEST(GreatCircle, AgreesWithTheTextbook) {
  EXPECT_NEAR(distanceBetween(losAngeles, newYork), 0.623585 * earthRadius, 0.1);
  EXPECT_NEAR(trackBetween(losAngeles, newYork), 65.892, 0.01);
}

TEST(GreatCircle, TracksRunFromNorthByEast) {
  EXPECT_DOUBLE_EQ(trackBetween({0, 0}, {1, 0}), 0);
  EXPECT_DOUBLE_EQ(trackBetween({0, 0}, {0, 1}), 90);
  EXPECT_DOUBLE_EQ(trackBetween({1, 0}, {0, 0}), 180);
  EXPECT_DOUBLE_EQ(trackBetween({0, 1}, {0, 0}), 270);
  EXPECT_DOUBLE_EQ(trackBetween({-34, 151}, {-34, 151}), 0);
}

TEST(GreatCircle, TakesTheShortWayAcrossTheAntimeridian) {
  EXPECT_NEAR(distanceBetween({0, 179}, {0, -179}), 120.08, 0.01);
  EXPECT_DOUBLE_EQ(trackBetween({0, 179}, {0, -179}), 90);
}

TEST(GreatCircle, LeadsToThePlaceAtATrackAndDistance) {
  const Position at = destinationOf(losAngeles, 66, 100);
  EXPECT_NEAR(at.lat, 34.0 + 37.0 / 60, 0.01);
  EXPECT_NEAR(at.lon, -(116.0 + 33.0 / 60), 0.01);
  EXPECT_NEAR(destinationOf({0, 179.5}, 90, 60.04).lon, -179.5, 0.001);
}

TEST(GreatCircle, DividesTheWay) {
  const Position at = positionBetween(losAngeles, newYork, 0.4);
  EXPECT_NEAR(at.lat, 38.0 + 40.167 / 60, 0.001);
  EXPECT_NEAR(at.lon, -(101.0 + 37.570 / 60), 0.001);
  EXPECT_NEAR(positionBetween(losAngeles, newYork, 1).lat, newYork.lat, 1e-9);
}

}  // namespace
