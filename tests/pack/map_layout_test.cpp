#include "cli/pack/map_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "cli/pack/map_svg.h"
#include "cli/pack/projection.h"

namespace {

using cli::pack::Box;
using cli::pack::DrawnLeg;
using cli::pack::GridLine;
using cli::pack::layOutMap;
using cli::pack::legText;
using cli::pack::MapLayout;
using cli::pack::MapLeg;
using cli::pack::MapPoint;
using cli::pack::MapSize;
using cli::pack::PointKind;
using cli::pack::Position;
using cli::pack::Projection;
using cli::pack::Spot;

constexpr Position sydney{-33.946, 151.177};
constexpr Position melbourne{-37.673, 144.843};
constexpr Position canberra{-35.307, 149.195};

std::vector<Box> labelsOf(const MapLayout& layout) {
  std::vector<Box> boxes;
  for (const auto& point : layout.points) boxes.push_back(point.label.box);
  for (const auto& leg : layout.legs) {
    if (!leg.label.text.empty()) boxes.push_back(leg.label.box);
  }
  for (const auto& line : layout.grid) {
    if (!line.label.text.empty()) boxes.push_back(line.label.box);
  }
  return boxes;
}

void expectApart(const MapLayout& layout) {
  const auto boxes = labelsOf(layout);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    for (std::size_t j = i + 1; j < boxes.size(); ++j) {
      EXPECT_FALSE(boxes[i].overlaps(boxes[j])) << "labels " << i << " and " << j;
    }
    for (const auto& point : layout.points) {
      EXPECT_FALSE(boxes[i].contains({point.at.x, point.at.y, 0, 0})) << "label " << i;
    }
  }
}

// Nine aerodromes around Sydney, 4 to 10 miles from each other, joined one after another.
MapLayout crowded(MapSize size) {
  std::vector<MapPoint> points;
  std::vector<MapLeg> legs;
  for (int i = 0; i < 9; ++i) {
    const Position at{-33.7 - 0.12 * (i / 3), 150.8 + 0.15 * (i % 3)};
    if (i > 0) legs.push_back({points.back().at, at, i > 6});
    points.push_back({"YSB" + std::to_string(i), at, PointKind::aerodrome});
  }
  points.push_back({"YMML", melbourne, PointKind::aerodrome});
  legs.push_back({points.front().at, melbourne, false});
  return layOutMap(points, legs, size);
}

TEST(LegText, IsTheInitialTrueTrackAndTheDistance) {
  EXPECT_EQ(legText({0, 0}, {0, 1}), "090°T 60 NM");
  EXPECT_EQ(legText({-35, 149}, {-34, 149}), "360°T 60 NM");
  EXPECT_EQ(legText({-34, 149}, {-35, 149}), "180°T 60 NM");
}

TEST(Boxes, OverlapWhenTheyShareAnArea) {
  const Box box{0, 0, 10, 10};
  EXPECT_TRUE(box.overlaps({9, 9, 10, 10}));
  EXPECT_TRUE(box.overlaps({2, 2, 1, 1}));
  EXPECT_FALSE(box.overlaps({10, 0, 10, 10}));
  EXPECT_FALSE(box.overlaps({0, 10, 10, 10}));
}

TEST(MapLayout, LabelsNeitherOverlapNorHidePoints) {
  expectApart(layOutMap({{"YSSY", sydney, PointKind::aerodrome},
                         {"YMML", melbourne, PointKind::aerodrome},
                         {"YSCB", canberra, PointKind::ofInterest}},
                        {{sydney, melbourne, false}, {melbourne, sydney, false}}, {}));
  expectApart(crowded({}));
  expectApart(crowded({360, 11, 1.05}));
}

TEST(MapLayout, EveryPointIsWithinTheFrameAndHasItsName) {
  const MapLayout layout = crowded({});
  for (const auto& point : layout.points) {
    EXPECT_TRUE(layout.frame.contains({point.at.x, point.at.y, 0, 0})) << point.point.name;
    EXPECT_TRUE(layout.frame.contains(point.label.box)) << point.point.name;
    EXPECT_EQ(point.label.text, point.point.name);
  }
}

TEST(MapLayout, NorthIsUpAndEastIsRight) {
  const MapLayout layout =
      layOutMap({{"YSSY", sydney, PointKind::aerodrome}, {"YMML", melbourne, PointKind::aerodrome}},
                {{sydney, melbourne, false}}, {});
  EXPECT_GT(layout.points[0].at.x, layout.points[1].at.x);
  EXPECT_LT(layout.points[0].at.y, layout.points[1].at.y);
  // 378 miles lie between them, whatever the scale.
  const Spot a = layout.points[0].at;
  const Spot b = layout.points[1].at;
  EXPECT_NEAR(std::hypot(a.x - b.x, a.y - b.y) / layout.unitsPerMile, 381.8, 2);
}

TEST(MapLayout, LegsAcrossTheAntimeridianHaveNoGap) {
  const Position nadi{-17.755, 177.443};
  const Position apia{-13.830, -172.008};
  const MapLayout layout =
      layOutMap({{"NFFN", nadi, PointKind::aerodrome}, {"NSFA", apia, PointKind::aerodrome}},
                {{nadi, apia, false}}, {});
  const auto& line = layout.legs.front().line;
  const double length = std::hypot(line.back().x - line.front().x, line.back().y - line.front().y);
  for (std::size_t i = 1; i < line.size(); ++i) {
    const double piece = std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
    EXPECT_NEAR(piece, length / 24, length / 200);
  }
  EXPECT_LT(line.front().x, line.back().x);
  const auto isLabelled = [&](const char* text) {
    return std::ranges::any_of(layout.grid,
                               [&](const GridLine& each) { return each.label.text == text; });
  };
  EXPECT_TRUE(isLabelled("180°E") || isLabelled("180°W"));
  EXPECT_TRUE(isLabelled("175°W"));
}

TEST(MapLayout, OnePlaceAloneIsDrawnInTheMiddle) {
  const MapLayout layout = layOutMap({{"YSSY", sydney, PointKind::aerodrome}}, {}, {});
  EXPECT_NEAR(layout.points[0].at.x, layout.frame.centre().x, 0.01);
  EXPECT_NEAR(layout.points[0].at.y, layout.frame.centre().y, 0.01);
}

TEST(MapSvg, HasATitleADescriptionAndNoMarkupFromNames) {
  const auto svg = cli::pack::mapSvg(
      layOutMap({{"<script>&\"", sydney, PointKind::aerodrome}}, {}, {}), "A <b>", "C & D", "m");
  EXPECT_NE(svg.find("role=\"img\" aria-labelledby=\"m-title m-desc\""), std::string::npos);
  EXPECT_NE(svg.find("<title id=\"m-title\">A &lt;b&gt;</title>"), std::string::npos);
  EXPECT_NE(svg.find("<desc id=\"m-desc\">C &amp; D</desc>"), std::string::npos);
  EXPECT_NE(svg.find(">&lt;script&gt;&amp;&quot;</text>"), std::string::npos);
  EXPECT_EQ(svg.find("<script"), std::string::npos);
}

TEST(Projection, BringsAPositionBack) {
  const Projection projection({-35, 178});
  for (const Position at : {Position{-35, 178}, {-36, -179}, {10, 150}, {-89, 10}}) {
    const Position back = projection.unproject(projection.project(at));
    EXPECT_NEAR(back.lat, at.lat, 1e-9);
    EXPECT_NEAR(back.lon, at.lon, 1e-9);
  }
}

TEST(Projection, TheCentreOfPositionsLiesBetweenThemOnTheShortSide) {
  const Position centre = cli::pack::centreOf({{0, 179}, {0, -177}});
  EXPECT_NEAR(centre.lat, 0, 1e-9);
  EXPECT_NEAR(centre.lon, -179, 1e-9);
}

}  // namespace
