#pragma once

#include "cli/pack/great_circle.h"

#include <string>
#include <vector>

/// Where everything on a route map goes. No label overlaps another one, or a point.
namespace cli::pack {

/// A point of the drawing: x to the right, y down.
struct Spot {
  double x = 0;
  double y = 0;
};

struct Box {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  [[nodiscard]] bool overlaps(const Box& other) const;
  [[nodiscard]] bool contains(const Box& other) const;
  [[nodiscard]] Spot centre() const { return {x + width / 2, y + height / 2}; }
};

enum class PointKind { aerodrome, waypoint, ofInterest };

struct MapPoint {
  std::string name;
  Position at;
  PointKind kind = PointKind::waypoint;
};

struct MapLeg {
  Position from;
  Position to;
  bool isAlternate = false;
};

/// A text in its box, and what it belongs to when a line has to say so.
struct Label {
  std::string text;
  Box box;
  bool hasLeader = false;
  Spot leaderEnd;
};

struct DrawnPoint {
  MapPoint point;
  Spot at;
  Label label;
};

struct DrawnLeg {
  MapLeg leg;
  std::vector<Spot> line;
  Label label;  ///< its text is empty where it found no place
};

struct GridLine {
  std::vector<Spot> line;
  Label label;  ///< outside the frame; its text is empty where it found no place
};

struct MapLayout {
  double width = 0;
  double height = 0;
  double fontSize = 0;
  Box frame;
  std::vector<GridLine> grid;
  std::vector<DrawnLeg> legs;
  std::vector<DrawnPoint> points;
  double unitsPerMile = 0;  ///< at the centre
};

/// A drawing of this width, its letters so high, in units of its own.
struct MapSize {
  double width = 720;
  double fontSize = 13;
  double mostHeight = 1;  ///< of the map, in widths
};

/// Lays the map out: north is up at its centre, which is the centre of the points.
MapLayout layOutMap(const std::vector<MapPoint>& points, const std::vector<MapLeg>& legs,
                    MapSize size);

/// The text on a leg: initial true track and distance, "236°T 142 NM".
std::string legText(Position from, Position to);

}  // namespace cli::pack
