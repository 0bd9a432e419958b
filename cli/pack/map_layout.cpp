#include "cli/pack/map_layout.h"

#include "cli/pack/projection.h"
#include "cli/text_output.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <optional>
#include <utility>

namespace cli::pack {
namespace {

constexpr int piecesOfLeg = 24;
constexpr double leastExtent = 20.0 / 3440;  // of the ground shown, in radians
constexpr double margin = 14;                // around the frame, beside the grid's labels
constexpr double pointRadius = 6;

double widthOfText(const std::string& text, double fontSize) {
  constexpr double advance = 0.62;  // of a monospaced font
  return static_cast<double>(widthOf(text)) * advance * fontSize;
}

Box boxAround(Spot centre, double width, double height) {
  return {centre.x - width / 2, centre.y - height / 2, width, height};
}

bool isLeftTurn(Spot a, Spot b, Spot c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x) > 0;
}

bool cross(Spot a, Spot b, Spot c, Spot d) {
  return isLeftTurn(a, c, d) != isLeftTurn(b, c, d) && isLeftTurn(a, b, c) != isLeftTurn(a, b, d);
}

bool crosses(const Box& box, Spot from, Spot to) {
  const Spot a{box.x, box.y};
  const Spot b{box.x + box.width, box.y};
  const Spot c{box.x + box.width, box.y + box.height};
  const Spot d{box.x, box.y + box.height};
  const bool isInside = box.contains({from.x, from.y, 0, 0});
  return isInside || cross(from, to, a, b) || cross(from, to, b, c) || cross(from, to, c, d) ||
         cross(from, to, d, a);
}

/// The surrounding rectangle of spots.
struct Extent {
  Spot least{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
  Spot most{std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()};

  void take(Spot spot) {
    least = {std::min(least.x, spot.x), std::min(least.y, spot.y)};
    most = {std::max(most.x, spot.x), std::max(most.y, spot.y)};
  }
  [[nodiscard]] double width() const { return std::max(most.x - least.x, leastExtent); }
  [[nodiscard]] double height() const { return std::max(most.y - least.y, leastExtent); }
  [[nodiscard]] Spot centre() const { return {(least.x + most.x) / 2, (least.y + most.y) / 2}; }
};

std::vector<Position> piecesOf(const MapLeg& leg) {
  std::vector<Position> pieces;
  for (int i = 0; i <= piecesOfLeg; ++i) {
    pieces.push_back(positionBetween(leg.from, leg.to, static_cast<double>(i) / piecesOfLeg));
  }
  return pieces;
}

/// From the projected plane to the drawing.
class Sheet {
 public:
  Sheet(const Projection& projection, const Extent& extent, MapSize size)
      : projection_(projection), middle_(extent.centre()) {
    const double left = widthOfText("179°30'W", size.fontSize) + 4;
    const double bottom = size.fontSize + 8;
    // Room for labels around the outermost points.
    const double room = 2 * std::min(70.0, size.width / 8);
    const double innerWidth = size.width - left - margin;
    const double tallest = size.width * size.mostHeight;
    const double lowest = size.width * 0.55;
    scale_ = std::min((innerWidth - room) / extent.width(), (tallest - room) / extent.height());
    const double innerHeight = std::max(lowest, extent.height() * scale_ + room);
    frame_ = {left, margin / 2, innerWidth, innerHeight};
    height_ = innerHeight + margin / 2 + bottom;
  }

  [[nodiscard]] Spot operator()(Position at) const { return placed(projection_.project(at)); }
  [[nodiscard]] Position positionAt(Spot spot) const {
    const Spot centre = frame_.centre();
    return projection_.unproject(
        {(spot.x - centre.x) / scale_ + middle_.x, (spot.y - centre.y) / scale_ + middle_.y});
  }
  [[nodiscard]] const Box& frame() const { return frame_; }
  [[nodiscard]] double height() const { return height_; }
  [[nodiscard]] double scale() const { return scale_; }

 private:
  [[nodiscard]] Spot placed(Spot plane) const {
    const Spot centre = frame_.centre();
    return {centre.x + (plane.x - middle_.x) * scale_, centre.y + (plane.y - middle_.y) * scale_};
  }

  const Projection& projection_;
  Spot middle_;
  double scale_ = 1;
  Box frame_;
  double height_ = 0;
};

/// Gives labels places that are free.
class Labelling {
 public:
  Labelling(const Box& frame, double fontSize) : frame_(frame), fontSize_(fontSize) {}

  void avoid(const Box& box) { taken_.push_back(box); }
  void avoidIfPossible(const std::vector<Spot>& line) { lines_.push_back(line); }

  /// A place for a text near one of the anchors, first ones preferred, `gap` away from it at least.
  std::optional<Label> place(const std::string& text, const std::vector<Spot>& anchors,
                             double gap) {
    const double width = widthOfText(text, fontSize_) + 4;
    const double height = fontSize_ * 1.25;
    std::optional<Label> best;
    double least = std::numeric_limits<double>::max();
    double handicap = 0;
    for (const Spot& anchor : anchors) {
      for (const double ring : rings) {
        for (int direction = 0; direction < directions; ++direction) {
          const Box box = boxAt(anchor, gap + ring, direction, width, height);
          double cost = handicap + ring * 1.5 + penaltyOf(direction);
          if (cost >= least || !isFree(box)) continue;
          cost += crossings(box) * 40;
          if (ring > leaderFrom) cost += hidden(anchor, box.centre()) * 60;
          if (cost >= least) continue;
          least = cost;
          best = Label{text, box, ring > leaderFrom, anchor};
        }
      }
      handicap += 8;
    }
    if (!best) return best;
    taken_.push_back(best->box);
    if (best->hasLeader) lines_.push_back({best->leaderEnd, best->box.centre()});
    return best;
  }

 private:
  static constexpr std::array rings{0.0, 5.0, 11.0, 18.0, 27.0, 38.0, 52.0, 70.0, 92.0, 120.0};
  static constexpr double leaderFrom = 11;
  static constexpr int directions = 16;

  /// To the right first, then to the left, above and below, then between them.
  static double penaltyOf(int direction) {
    if (direction == 0) return 0;
    if (direction == directions / 2) return 2;
    return direction % (directions / 4) == 0 ? 4 : 6;
  }

  /// The box that lies in the direction, just `away` from the anchor.
  static Box boxAt(Spot anchor, double away, int direction, double width, double height) {
    const double angle = 2 * std::numbers::pi * direction / directions;
    const double x = std::cos(angle);
    const double y = -std::sin(angle);
    return boxAround({anchor.x + x * (away + width / 2), anchor.y + y * (away + height / 2)}, width,
                     height);
  }

  [[nodiscard]] bool isFree(const Box& box) const {
    return frame_.contains(box) &&
           std::ranges::none_of(taken_, [&](const Box& other) { return box.overlaps(other); });
  }

  [[nodiscard]] int crossings(const Box& box) const {
    int count = 0;
    for (const auto& line : lines_) {
      for (std::size_t i = 1; i < line.size(); ++i) {
        if (!crosses(box, line[i - 1], line[i])) continue;
        ++count;
        break;
      }
    }
    return count;
  }

  /// How much a leader would run over.
  [[nodiscard]] int hidden(Spot from, Spot to) const {
    return static_cast<int>(std::ranges::count_if(taken_, [&](const Box& box) {
      return !box.contains({from.x, from.y, 0, 0}) && crosses(box, from, to);
    }));
  }

  Box frame_;
  double fontSize_;
  std::vector<Box> taken_;
  std::vector<std::vector<Spot>> lines_;
};

/// Degrees between grid lines, so that a handful of them cross the map.
double gridStep(double degrees) {
  constexpr double wanted = 5;
  for (const double step : {1.0 / 12, 1.0 / 6, 0.25, 0.5, 1.0, 2.0, 5.0, 10.0, 15.0}) {
    if (degrees / step <= wanted + 1) return step;
  }
  return 30;
}

std::string gridText(double degrees, const char* hemispheres) {
  const long minutes = std::lround(std::abs(degrees) * 60);
  const char hemisphere = hemispheres[degrees < 0 ? 1 : 0];
  const std::string whole = fmt::format("{}°", minutes / 60);
  if (minutes % 60 == 0) return whole + (minutes == 0 ? ' ' : hemisphere);
  return fmt::format("{}{:02}'{}", whole, minutes % 60, hemisphere);
}

/// The latitudes and, from the middle one, longitudes that the sheet shows.
struct Shown {
  double south = 90;
  double north = -90;
  double west = 0;
  double east = 0;
  double middle = 0;
};

Shown shownBy(const Sheet& sheet) {
  constexpr int samples = 20;
  const Box& frame = sheet.frame();
  Shown shown;
  shown.middle = sheet.positionAt(frame.centre()).lon;
  for (int i = 0; i <= samples; ++i) {
    for (int j = 0; j <= samples; ++j) {
      const Position at = sheet.positionAt(
          {frame.x + frame.width * i / samples, frame.y + frame.height * j / samples});
      const double east = std::remainder(at.lon - shown.middle, 360.0);
      shown.south = std::min(shown.south, at.lat);
      shown.north = std::max(shown.north, at.lat);
      shown.west = std::min(shown.west, east);
      shown.east = std::max(shown.east, east);
    }
  }
  return shown;
}

/// Where the line crosses the left edge of the frame, or its lower edge.
std::optional<Spot> crossingOf(const std::vector<Spot>& line, const Box& frame, bool atLeft) {
  const double edge = atLeft ? frame.x : frame.y + frame.height;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const double a = atLeft ? line[i - 1].x : line[i - 1].y;
    const double b = atLeft ? line[i].x : line[i].y;
    if ((a < edge) == (b < edge)) continue;
    const double part = (edge - a) / (b - a);
    const Spot at{line[i - 1].x + (line[i].x - line[i - 1].x) * part,
                  line[i - 1].y + (line[i].y - line[i - 1].y) * part};
    const double along = atLeft ? at.y - frame.y : at.x - frame.x;
    if (along >= 0 && along <= (atLeft ? frame.height : frame.width)) return at;
  }
  return std::nullopt;
}

class Graticule {
 public:
  Graticule(const Sheet& sheet, MapSize size) : sheet_(sheet), size_(size), shown_(shownBy(sheet)) {
    const double high = shown_.north - shown_.south;
    const double wide = shown_.east - shown_.west;
    addParallels(gridStep(high));
    addMeridians(gridStep(wide), high);
  }

  std::vector<GridLine> take() { return std::move(lines_); }

 private:
  static constexpr int pieces = 60;

  void addParallels(double step) {
    for (double lat = std::ceil(shown_.south / step) * step; lat <= shown_.north; lat += step) {
      GridLine line;
      for (int i = 0; i <= pieces; ++i) {
        const double east = shown_.west + (shown_.east - shown_.west) * i / pieces;
        line.line.push_back(sheet_({lat, shown_.middle + east}));
      }
      label(line, gridText(lat, "NS"), true);
    }
  }

  void addMeridians(double step, double high) {
    const double first = shown_.middle + shown_.west;
    for (double lon = std::ceil(first / step) * step; lon <= shown_.middle + shown_.east;
         lon += step) {
      GridLine line;
      for (int i = 0; i <= pieces; ++i)
        line.line.push_back(sheet_({shown_.south + high * i / pieces, lon}));
      label(line, gridText(std::remainder(lon, 360.0), "EW"), false);
    }
  }

  void label(GridLine& line, const std::string& text, bool isParallel) {
    const Box& frame = sheet_.frame();
    const double width = widthOfText(text, size_.fontSize) + 2;
    const double height = size_.fontSize * 1.2;
    if (const auto at = crossingOf(line.line, frame, isParallel)) {
      const Box box = isParallel
                          ? Box{frame.x - 4 - width, at->y - height / 2, width, height}
                          : Box{at->x - width / 2, frame.y + frame.height + 4, width, height};
      const bool isFree = std::ranges::none_of(
          lines_, [&](const GridLine& other) { return other.label.box.overlaps(box); });
      const bool isInside = Box{0, 0, size_.width, sheet_.height()}.contains(box);
      if (isFree && isInside) line.label = {text, box, false, {}};
    }
    lines_.push_back(std::move(line));
  }

  const Sheet& sheet_;
  MapSize size_;
  Shown shown_;
  std::vector<GridLine> lines_;
};

/// Places along a line, the middle one first.
std::vector<Spot> anchorsOn(const std::vector<Spot>& line) {
  std::vector<Spot> anchors;
  for (const double part : {0.5, 0.4, 0.6, 0.3, 0.7}) {
    anchors.push_back(line[static_cast<std::size_t>(part * piecesOfLeg)]);
  }
  return anchors;
}

void labelPoints(MapLayout& layout, Labelling& labelling) {
  for (DrawnPoint& drawn : layout.points) {
    constexpr double gap = pointRadius + 2;
    if (auto label = labelling.place(drawn.point.name, {drawn.at}, gap)) drawn.label = *label;
  }
}

void labelLegs(MapLayout& layout, Labelling& labelling) {
  for (DrawnLeg& drawn : layout.legs) {
    constexpr double gap = 4;
    const std::string text = legText(drawn.leg.from, drawn.leg.to);
    if (auto label = labelling.place(text, anchorsOn(drawn.line), gap)) drawn.label = *label;
  }
}

}  // namespace

bool Box::overlaps(const Box& other) const {
  return x < other.x + other.width && other.x < x + width && y < other.y + other.height &&
         other.y < y + height;
}

bool Box::contains(const Box& other) const {
  return other.x >= x && other.y >= y && other.x + other.width <= x + width &&
         other.y + other.height <= y + height;
}

std::string legText(Position from, Position to) {
  const long track = std::lround(trackBetween(from, to)) % 360;
  return fmt::format("{:03}°T {} NM", track == 0 ? 360 : track,
                     std::lround(distanceBetween(from, to)));
}

MapLayout layOutMap(const std::vector<MapPoint>& points, const std::vector<MapLeg>& legs,
                    MapSize size) {
  std::vector<Position> positions;
  for (const MapPoint& point : points) positions.push_back(point.at);
  const Projection projection(centreOf(positions));
  Extent extent;
  for (const Position& at : positions) extent.take(projection.project(at));
  for (const MapLeg& leg : legs) {
    for (const Position& at : piecesOf(leg)) extent.take(projection.project(at));
  }
  const Sheet sheet(projection, extent, size);

  MapLayout layout;
  layout.width = size.width;
  layout.height = sheet.height();
  layout.fontSize = size.fontSize;
  layout.frame = sheet.frame();
  layout.unitsPerMile = sheet.scale() / 3440.07;
  layout.grid = Graticule(sheet, size).take();
  Labelling labelling(layout.frame, size.fontSize);
  for (const MapLeg& leg : legs) {
    DrawnLeg& drawn = layout.legs.emplace_back();
    drawn.leg = leg;
    for (const Position& at : piecesOf(leg)) drawn.line.push_back(sheet(at));
    labelling.avoidIfPossible(drawn.line);
  }
  for (const MapPoint& point : points) {
    layout.points.push_back({point, sheet(point.at), {}});
    labelling.avoid(boxAround(layout.points.back().at, 2 * pointRadius, 2 * pointRadius));
  }
  labelPoints(layout, labelling);
  labelLegs(layout, labelling);
  return layout;
}

}  // namespace cli::pack
