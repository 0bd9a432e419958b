#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <set>

#include "simulator/charts/contours.h"
#include "simulator/charts/projection.h"
#include "simulator/data/charts_catalogue.h"

namespace {

using namespace std::chrono;

constexpr sim::TimePoint now = sys_days{2026y / March / 3} + 7h + 12min;

unsigned bigEndian(const std::string& bytes, std::size_t at) {
  unsigned value = 0;
  for (std::size_t i = at; i < at + 4; ++i) {
    value = value << 8 | static_cast<unsigned char>(bytes[i]);
  }
  return value;
}

TEST(Charts, CatalogueHasAllTypesAndOnePdf) {
  std::set<std::string> keys;
  std::set<std::string> types;
  long pdfs = 0;
  for (const sim::ChartEntry& entry : sim::chartCatalogue(now)) {
    EXPECT_TRUE(keys.insert(entry.key).second);
    types.insert(entry.type);
    pdfs += entry.format == sim::Format::pdf ? 1 : 0;
    EXPECT_TRUE(entry.low || entry.high);
    EXPECT_EQ(entry.storeTime, sim::TimePoint(sys_days{2026y / March / 3} + 6h));
    EXPECT_GE(entry.valid, entry.storeTime);
  }
  EXPECT_EQ(types, (std::set<std::string>{"GPWT", "MSLP", "SIGWX"}));
  EXPECT_EQ(pdfs, 1);
}

TEST(Charts, ArePngInBothSizesOrPdf) {
  for (const sim::ChartEntry& entry : sim::chartCatalogue(now)) {
    for (const bool high : {false, true}) {
      const std::string bytes = sim::drawEntry(entry, high);
      if (entry.format == sim::Format::pdf) {
        EXPECT_EQ(bytes.substr(0, 5), "%PDF-");
        EXPECT_NE(bytes.find("%%EOF"), std::string::npos);
        continue;
      }
      ASSERT_GT(bytes.size(), 20000U);
      EXPECT_EQ(bytes.substr(0, 8), "\x89PNG\r\n\x1a\n");
      EXPECT_EQ(bigEndian(bytes, 16), high ? 1600U : 800U);
      EXPECT_EQ(bigEndian(bytes, 20), high ? 1200U : 600U);
    }
  }
}

TEST(Charts, AreTheSameForTheSameRequest) {
  for (const sim::ChartEntry& entry : sim::chartCatalogue(now)) {
    EXPECT_TRUE(sim::drawEntry(entry, true) == sim::drawEntry(entry, true)) << entry.name;
  }
  const sim::ChartRequest first{"MSLP ANALYSIS", "MSLP", false, now};
  const sim::ChartRequest later{"MSLP ANALYSIS", "MSLP", false, now + days{1}};
  EXPECT_FALSE(sim::drawChart(first, sim::Format::png) == sim::drawChart(later, sim::Format::png));
}

// Time of the processor, so that a busy machine does not spoil the result.
TEST(Charts, AreDrawnQuickly) {
#ifdef KTP_SANITIZED
  constexpr double limit = 6;
#else
  constexpr double limit = 0.3;
#endif
  for (const char* kind : {"MSLP", "SIGWX", "GPWT"}) {
    double best = limit * 10;
    for (int round = 0; round < 4; ++round) {
      const std::clock_t start = std::clock();
      sim::drawChart({"SPEED", kind, true, now}, sim::Format::png);
      best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    EXPECT_LT(best, limit) << kind;
    RecordProperty(kind, std::to_string(best));
  }
}

TEST(Charts, ProjectionInverts) {
  const sim::Projection map({0, 0, 800, 600}, -28, 136, 585);
  for (double latitude = -55; latitude <= 0; latitude += 11) {
    for (double longitude = 95; longitude <= 175; longitude += 16) {
      double back = 0;
      double along = 0;
      map.toGeo(map.toMap(latitude, longitude), back, along);
      EXPECT_NEAR(back, latitude, 1e-9);
      EXPECT_NEAR(along, longitude, 1e-9);
    }
  }
}

TEST(Charts, ContoursOfACircleCloseAndFollowIt) {
  const auto field = [](sim::MapPoint p) { return p.x * p.x + p.y * p.y; };
  const sim::Grid grid = sim::sampleGrid({-10, -10, 10, 10}, 0.5, field);
  const auto lines = sim::contourLines(grid, 36.01);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].front().x, lines[0].back().x);
  EXPECT_EQ(lines[0].front().y, lines[0].back().y);
  for (const sim::MapPoint& point : lines[0]) {
    EXPECT_NEAR(std::hypot(point.x, point.y), 6, 0.05);
  }
}

TEST(Charts, ContoursCutByTheBorderAreOpen) {
  const sim::Grid grid =
      sim::sampleGrid({0, 0, 10, 10}, 1, [](sim::MapPoint p) { return p.x + 0.1 * p.y; });
  const auto lines = sim::contourLines(grid, 5.05);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_GE(lines[0].size(), 11U);
  EXPECT_TRUE(sim::contourLines(grid, 99).empty());
}

}  // namespace
