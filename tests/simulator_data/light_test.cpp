#include "simulator/data/light.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono;

void expectNear(std::optional<sim::TimePoint> actual, sim::TimePoint expected) {
  ASSERT_TRUE(actual.has_value());
  EXPECT_LE(abs(*actual - expected), 3min)
      << sim::isoDateTime(*actual) << " instead of " << sim::isoDateTime(expected);
}

// Civil twilight at Sydney on the June solstice: 06:32 to 17:21 AEST.
TEST(Light, SydneyInWinter) {
  const auto light = sim::daylight(-33.946, 151.177, 2024y / June / 21);
  expectNear(light.first, sim::TimePoint(sys_days{2024y / June / 20} + 20h + 32min));
  expectNear(light.last, sim::TimePoint(sys_days{2024y / June / 21} + 7h + 21min));
}

// Sydney on the December solstice: 05:12 to 20:35 AEDT.
TEST(Light, SydneyInSummer) {
  const auto light = sim::daylight(-33.946, 151.177, 2024y / December / 21);
  expectNear(light.first, sim::TimePoint(sys_days{2024y / December / 20} + 18h + 12min));
  expectNear(light.last, sim::TimePoint(sys_days{2024y / December / 21} + 9h + 35min));
}

// Darwin on the June solstice: 06:43 to 18:53 ACST.
TEST(Light, DarwinInWinter) {
  const auto light = sim::daylight(-12.415, 130.877, 2024y / June / 21);
  expectNear(light.first, sim::TimePoint(sys_days{2024y / June / 20} + 21h + 13min));
  expectNear(light.last, sim::TimePoint(sys_days{2024y / June / 21} + 9h + 23min));
}

// Hobart on the December solstice: 04:53 to 21:24 AEDT.
TEST(Light, HobartInSummer) {
  const auto light = sim::daylight(-42.836, 147.510, 2024y / December / 21);
  expectNear(light.first, sim::TimePoint(sys_days{2024y / December / 20} + 17h + 53min));
  expectNear(light.last, sim::TimePoint(sys_days{2024y / December / 21} + 10h + 24min));
}

TEST(Light, DoesNotOccurInThePolarNight) {
  const auto light = sim::daylight(-85, 110, 2024y / June / 21);
  EXPECT_FALSE(light.first.has_value());
  EXPECT_FALSE(light.last.has_value());
}

TEST(Light, FirstComesBeforeLastOnTheLocalDay) {
  const auto light = sim::daylight(-31.94, 115.967, 2026y / March / 1);
  ASSERT_TRUE(light.first && light.last);
  EXPECT_GT(*light.last - *light.first, 12h);
  EXPECT_LT(*light.last - *light.first, 15h);
}

}  // namespace
