#include <algorithm>
#include <cmath>
#include <numbers>

#include "simulator/charts/base_map.h"
#include "simulator/charts/chart_layers.h"
#include "simulator/charts/contours.h"
#include "simulator/charts/symbols.h"
#include "simulator/data/pressure.h"

namespace sim {

namespace {

constexpr double gridStep = 4;
constexpr double labelSpacing = 330;  // along an isobar

Grid pressureGrid(const Projection& map, std::chrono::sys_seconds valid) {
  return sampleGrid(map.frame(), gridStep, [&](MapPoint point) {
    double latitude = 0;
    double longitude = 0;
    map.toGeo(point, latitude, longitude);
    return pressureAt(latitude, longitude, valid);
  });
}

std::string pressureText(double value) {
  return std::to_string(std::lround(value));
}

// Whether the value is the greatest (sign 1) or least (sign -1) of its surroundings.
bool isExtreme(const Grid& grid, int column, int row, int reach, double sign) {
  const double value = sign * grid.at(column, row);
  for (int r = row - reach; r <= row + reach; r += 2) {
    for (int c = column - reach; c <= column + reach; c += 2) {
      if (sign * grid.at(c, r) > value) {
        return false;
      }
    }
  }
  return sign * grid.at(column - 1, row) <= value && sign * grid.at(column + 1, row) <= value &&
         sign * grid.at(column, row - 1) <= value && sign * grid.at(column, row + 1) <= value;
}

void drawCentre(Canvas& canvas, MapPoint at, double pressure, double sign) {
  if (!canvas.reserve({at.x - 18, at.y - 15, at.x + 18, at.y + 24})) {
    return;
  }
  const Colour colour = sign > 0 ? ink::blue : ink::red;
  canvas.text(at, sign > 0 ? "H" : "L", 25, colour, Align::centre, true, 2);
  canvas.text({at.x, at.y + 17}, pressureText(pressure), 9.5, colour, Align::centre, true, 1.5);
}

void drawCentres(Canvas& canvas, const Grid& grid) {
  constexpr int reach = 12;
  for (int row = reach; row + reach < grid.rows; ++row) {
    for (int column = reach; column + reach < grid.columns; ++column) {
      for (const double sign : {1.0, -1.0}) {
        if (isExtreme(grid, column, row, reach, sign)) {
          drawCentre(canvas, {grid.left + column * grid.step, grid.top + row * grid.step},
                     grid.at(column, row), sign);
        }
      }
    }
  }
}

void drawRotatedLabel(Canvas& canvas, MapPoint at, double angle, const std::string& words) {
  cairo_save(canvas.pen());
  cairo_translate(canvas.pen(), at.x, at.y);
  cairo_rotate(canvas.pen(), angle);
  canvas.text({0, 0}, words, 8, ink::isobar, Align::centre, true, 2);
  cairo_restore(canvas.pen());
}

void labelIsobar(Canvas& canvas, const Projection& map, const Polyline& line, double level) {
  constexpr double step = 8;
  if (line.size() < 2 || lengthOf(line) < 90) {
    return;
  }
  const Polyline points = resample(line, step);
  double sinceLast = labelSpacing * 0.65;
  for (std::size_t i = 2; i + 2 < points.size(); ++i) {
    sinceLast += step;
    const MapPoint at = points[i];
    const double dx = points[i + 2].x - points[i - 2].x;
    const double dy = points[i + 2].y - points[i - 2].y;
    const bool straight = std::hypot(dx, dy) > 3.9 * step;
    if (sinceLast < labelSpacing || !straight || !map.frame().contains(at, 16)) {
      continue;
    }
    double angle = std::atan2(dy, dx);
    if (std::abs(angle) > std::numbers::pi / 2) {
      angle += angle > 0 ? -std::numbers::pi : std::numbers::pi;
    }
    const double halfWidth = 4 + 9 * std::abs(std::cos(angle));
    const double halfHeight = 4 + 9 * std::abs(std::sin(angle));
    if (canvas.reserve(
            {at.x - halfWidth, at.y - halfHeight, at.x + halfWidth, at.y + halfHeight})) {
      drawRotatedLabel(canvas, at, angle, pressureText(level));
      sinceLast = 0;
    }
  }
}

void reserveAlong(Canvas& canvas, const Polyline& line) {
  for (const MapPoint& point : resample(line, 8)) {
    canvas.reserve({point.x - 5, point.y - 5, point.x + 5, point.y + 5});
  }
}

Polyline project(const std::vector<GeoPoint>& points, const Projection& map) {
  Polyline line;
  for (const GeoPoint& point : points) {
    line.push_back(map.toMap(point.latitude, point.longitude));
  }
  return line;
}

}  // namespace

void drawMslp(Canvas& canvas, const Projection& map, const ChartRequest& request) {
  const Grid grid = pressureGrid(map, request.valid);
  const auto [least, greatest] = std::ranges::minmax(grid.values);
  std::vector<std::pair<double, std::vector<Polyline>>> isobars;
  const int first = static_cast<int>(std::ceil(least / 4)) * 4;
  for (int level = first; level <= greatest; level += 4) {
    isobars.emplace_back(level, contourLines(grid, level + 1e-7));
    for (const Polyline& line : isobars.back().second) {
      canvas.line(line);
    }
    canvas.stroke(ink::isobar, level % 20 == 0 ? 1.7 : 1.0);
  }
  for (const FrontalLow& low : frontalLows(request.valid)) {
    const Polyline cold = project(low.coldFront, map);
    const Polyline warm = project(low.warmFront, map);
    drawFront(canvas, cold, FrontKind::cold);
    drawFront(canvas, warm, FrontKind::warm);
    reserveAlong(canvas, cold);
    reserveAlong(canvas, warm);
  }
  drawCentres(canvas, grid);
  drawCities(canvas, map);
  for (const auto& [level, lines] : isobars) {
    for (const Polyline& line : lines) {
      labelIsobar(canvas, map, line, level);
    }
  }
}

void drawMslpLegend(Canvas& canvas) {
  canvas.line({{16, legendY}, {44, legendY}});
  canvas.stroke(ink::isobar, 1.2);
  canvas.text({52, legendY}, "Isobars every 4 hPa", 9, ink::text);
  drawFront(canvas, {{190, legendY - 2}, {253, legendY - 2}}, FrontKind::cold);
  canvas.text({262, legendY}, "Cold front", 9, ink::text);
  drawFront(canvas, {{352, legendY - 2}, {415, legendY - 2}}, FrontKind::warm);
  canvas.text({424, legendY}, "Warm front", 9, ink::text);
  canvas.text({520, legendY}, "H", 15, ink::blue, Align::centre, true);
  canvas.text({533, legendY}, "High", 9, ink::text);
  canvas.text({582, legendY}, "L", 15, ink::red, Align::centre, true);
  canvas.text({595, legendY}, "Low, central pressure in hPa", 9, ink::text);
}

}  // namespace sim
