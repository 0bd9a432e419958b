#include "simulator/charts/symbols.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace sim {

namespace {

constexpr double labelSize = 7.5;
constexpr double labelLine = 10;

MapPoint between(MapPoint a, MapPoint b, double part) {
  return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
}

double distance(MapPoint a, MapPoint b) {
  return std::hypot(b.x - a.x, b.y - a.y);
}

bool clockwise(const Polyline& outline) {
  double area = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const MapPoint& a = outline[i];
    const MapPoint& b = outline[(i + 1) % outline.size()];
    area += a.x * b.y - b.x * a.y;
  }
  return area > 0;
}

}  // namespace

double lengthOf(const Polyline& line) {
  double length = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    length += distance(line[i - 1], line[i]);
  }
  return length;
}

Polyline resample(const Polyline& line, double step) {
  const double total = lengthOf(line);
  const int count = std::max(1, static_cast<int>(std::lround(total / step)));
  const double exact = total / count;
  Polyline samples{line.front()};
  double walked = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const double piece = distance(line[i - 1], line[i]);
    while (piece > 0 && static_cast<int>(samples.size()) <= count &&
           walked + piece >= exact * static_cast<double>(samples.size()) - 1e-9) {
      const double target = exact * static_cast<double>(samples.size());
      samples.push_back(between(line[i - 1], line[i], (target - walked) / piece));
    }
    walked += piece;
  }
  return samples;
}

void drawFront(Canvas& canvas, const Polyline& line, FrontKind kind) {
  constexpr double spacing = 21;
  constexpr double half = 4.6;
  const Colour colour = kind == FrontKind::cold ? ink::blue : ink::red;
  canvas.line(line);
  canvas.stroke(colour, 2);
  const Polyline marks = resample(line, spacing);
  for (std::size_t i = 1; i < marks.size(); ++i) {
    const MapPoint a = marks[i - 1];
    const MapPoint b = marks[i];
    const double length = distance(a, b);
    const double tx = (b.x - a.x) / length;
    const double ty = (b.y - a.y) / length;
    const MapPoint middle = between(a, b, 0.5);
    cairo_new_sub_path(canvas.pen());
    if (kind == FrontKind::cold) {
      cairo_move_to(canvas.pen(), middle.x - half * tx, middle.y - half * ty);
      cairo_line_to(canvas.pen(), middle.x - 1.7 * half * ty, middle.y + 1.7 * half * tx);
      cairo_line_to(canvas.pen(), middle.x + half * tx, middle.y + half * ty);
      cairo_close_path(canvas.pen());
    } else {
      const double angle = std::atan2(ty, tx);
      cairo_arc(canvas.pen(), middle.x, middle.y, half, angle, angle + std::numbers::pi);
    }
    canvas.fill(colour);
  }
}

void drawBarb(Canvas& canvas, MapPoint at, double angle, int speedKt, Colour colour, double size) {
  cairo_t* pen = canvas.pen();
  const int rounded = (speedKt + 2) / 5 * 5;
  cairo_save(pen);
  cairo_translate(pen, at.x, at.y);
  if (rounded == 0) {
    cairo_arc(pen, 0, 0, size * 0.16, 0, 7);
    canvas.stroke(colour, 1);
    cairo_restore(pen);
    return;
  }
  // The staff points up; seen from the station the low pressure lies to its left.
  cairo_rotate(pen, angle * std::numbers::pi / 180);
  const double feather = -size * 0.42;
  const double slope = -size * 0.16;
  const double gap = size * 0.145;
  cairo_move_to(pen, 0, 0);
  cairo_line_to(pen, 0, -size);
  canvas.stroke(colour, 1.05);
  double y = -size;
  int left = rounded;
  for (; left >= 50; left -= 50) {
    cairo_move_to(pen, 0, y);
    cairo_line_to(pen, feather, y + gap * 0.3);
    cairo_line_to(pen, 0, y + gap * 1.5);
    cairo_close_path(pen);
    canvas.fill(colour);
    y += gap * (left >= 100 ? 1.6 : 2.2);
  }
  for (; left >= 10; left -= 10) {
    cairo_move_to(pen, 0, y);
    cairo_line_to(pen, feather, y + slope);
    y += gap;
  }
  if (left >= 5) {
    if (rounded == 5) {
      y += gap;
    }
    cairo_move_to(pen, 0, y);
    cairo_line_to(pen, feather / 2, y + slope / 2);
  }
  canvas.stroke(colour, 1.05);
  cairo_arc(pen, 0, 0, 1.1, 0, 7);
  canvas.fill(colour);
  cairo_restore(pen);
}

void drawScallopedArea(Canvas& canvas, const Polyline& outline, Colour colour) {
  Polyline closed = outline;
  closed.push_back(outline.front());
  if (!clockwise(closed)) {
    std::ranges::reverse(closed);
  }
  const Polyline marks = resample(closed, 11);
  cairo_new_sub_path(canvas.pen());
  for (std::size_t i = 1; i < marks.size(); ++i) {
    const MapPoint a = marks[i - 1];
    const MapPoint b = marks[i];
    const MapPoint middle = between(a, b, 0.5);
    const double angle = std::atan2(a.y - b.y, a.x - b.x);
    cairo_arc(canvas.pen(), middle.x, middle.y, distance(a, b) / 2, angle,
              angle + std::numbers::pi);
  }
  cairo_close_path(canvas.pen());
  canvas.ink(colour, 0.09);
  cairo_fill_preserve(canvas.pen());
  canvas.stroke(colour, 1.3);
}

void drawDashedArea(Canvas& canvas, const Polyline& outline, Colour colour) {
  constexpr double dashes[] = {7, 4};
  canvas.line(outline, true);
  canvas.ink(colour, 0.07);
  cairo_fill_preserve(canvas.pen());
  cairo_set_dash(canvas.pen(), dashes, 2, 0);
  canvas.stroke(colour, 1.4);
  cairo_set_dash(canvas.pen(), nullptr, 0, 0);
}

void drawArrow(Canvas& canvas, const Polyline& line, Colour colour, double lineWidth) {
  canvas.line(line);
  canvas.stroke(colour, lineWidth);
  const MapPoint tip = line.back();
  const MapPoint before = line[line.size() - 2];
  const double angle = std::atan2(tip.y - before.y, tip.x - before.x);
  cairo_save(canvas.pen());
  cairo_translate(canvas.pen(), tip.x, tip.y);
  cairo_rotate(canvas.pen(), angle);
  cairo_move_to(canvas.pen(), 9, 0);
  cairo_line_to(canvas.pen(), -4, -6);
  cairo_line_to(canvas.pen(), -4, 6);
  cairo_close_path(canvas.pen());
  canvas.fill(colour);
  cairo_restore(canvas.pen());
}

MapRect labelBoxRect(const Canvas& canvas, MapPoint middle, const std::vector<std::string>& lines) {
  double width = 0;
  for (const std::string& line : lines) {
    width = std::max(width, canvas.textWidth(line, labelSize, true));
  }
  const double halfHeight = labelLine * static_cast<double>(lines.size()) / 2 + 2.5;
  return {middle.x - width / 2 - 5, middle.y - halfHeight, middle.x + width / 2 + 5,
          middle.y + halfHeight};
}

void drawLabelBox(Canvas& canvas, MapPoint middle, const std::vector<std::string>& lines,
                  Colour colour) {
  const MapRect rect = labelBoxRect(canvas, middle, lines);
  canvas.box(rect, 2.5);
  canvas.ink(ink::white, 0.93);
  cairo_fill_preserve(canvas.pen());
  canvas.stroke(colour, 0.9);
  double y = rect.top + 2.5 + labelLine / 2;
  for (const std::string& line : lines) {
    canvas.text({middle.x, y}, line, labelSize, colour, Align::centre, true);
    y += labelLine;
  }
}

}  // namespace sim
