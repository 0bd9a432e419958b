#include "cli/pack/map_svg.h"

#include "cli/pack/html.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace cli::pack {
namespace {

constexpr double legendHeight = 26;

std::string pathOfLine(const std::vector<Spot>& line) {
  std::string path;
  for (const Spot& at : line) {
    path += fmt::format("{}{:.1f} {:.1f}", path.empty() ? "M" : "L", at.x, at.y);
  }
  return path;
}

std::string textIn(const Label& label, const char* style, double fontSize) {
  if (label.text.empty()) return {};
  const Spot centre = label.box.centre();
  return fmt::format(R"(<text class="{}" x="{:.1f}" y="{:.1f}">{}</text>)", style, centre.x,
                     centre.y + fontSize * 0.35, escaped(label.text));
}

/// A line from a label that stands away to what it belongs to.
std::string leaderOf(const Label& label) {
  if (label.text.empty() || !label.hasLeader) return {};
  const Box& box = label.box;
  const Spot end = label.leaderEnd;
  const double x = std::min(std::max(end.x, box.x), box.x + box.width);
  const double y = std::min(std::max(end.y, box.y), box.y + box.height);
  return fmt::format(R"(<path class="leader" d="M{:.1f} {:.1f}L{:.1f} {:.1f}"/>)", x, y, end.x,
                     end.y);
}

/// An arrow head in the middle of a leg, along it.
std::string arrowOn(const DrawnLeg& drawn) {
  const std::size_t middle = drawn.line.size() / 2;
  const Spot before = drawn.line[middle - 1];
  const Spot at = drawn.line[middle];
  const double length = std::hypot(at.x - before.x, at.y - before.y);
  const Spot first = drawn.line.front();
  const Spot last = drawn.line.back();
  constexpr double shortest = 24;
  if (length == 0 || std::hypot(last.x - first.x, last.y - first.y) < shortest) return {};
  const double x = (at.x - before.x) / length;
  const double y = (at.y - before.y) / length;
  return fmt::format(R"(<path class="{}" d="M{:.1f} {:.1f}L{:.1f} {:.1f}L{:.1f} {:.1f}Z"/>)",
                     drawn.leg.isAlternate ? "head alternate" : "head", at.x + 5 * x, at.y + 5 * y,
                     at.x - 4 * x - 4 * y, at.y - 4 * y + 4 * x, at.x - 4 * x + 4 * y,
                     at.y - 4 * y - 4 * x);
}

std::string symbolOf(const DrawnPoint& drawn) {
  const auto [x, y] = drawn.at;
  switch (drawn.point.kind) {
    case PointKind::aerodrome:
      return fmt::format(R"(<circle class="aerodrome" cx="{:.1f}" cy="{:.1f}" r="5"/>)", x, y);
    case PointKind::ofInterest:
      return fmt::format(R"(<circle class="interest" cx="{:.1f}" cy="{:.1f}" r="4"/>)", x, y);
    default:
      return fmt::format(
          R"(<path class="waypoint" d="M{:.1f} {:.1f}L{:.1f} {:.1f}L{:.1f} {:.1f}Z"/>)", x, y - 5.5,
          x + 5, y + 3.5, x - 5, y + 3.5);
  }
}

/// A round distance whose bar takes about a fifth of the width.
double barMiles(const MapLayout& layout) {
  double best = 1;
  for (const double miles : {1., 2., 5., 10., 20., 50., 100., 200., 500., 1000., 2000.}) {
    if (miles * layout.unitsPerMile <= layout.width / 6) best = miles;
  }
  return best;
}

std::string legendOf(const MapLayout& layout) {
  const double y = layout.height + legendHeight / 2;
  const double miles = barMiles(layout);
  const double bar = miles * layout.unitsPerMile;
  const double right = layout.frame.x + layout.frame.width;
  const double left = layout.frame.x;
  const double letter = layout.fontSize * 0.62;
  const double second = left + 34 + 7 * letter;
  std::string svg = fmt::format(R"(<path class="leg" d="M{:.1f} {:.1f}h26"/>)", left, y);
  svg += fmt::format(R"(<text class="key" x="{:.1f}" y="{:.1f}">route</text>)", left + 32, y + 4);
  svg += fmt::format(R"(<path class="leg alternate" d="M{:.1f} {:.1f}h26"/>)", second, y);
  svg += fmt::format(R"(<text class="key" x="{:.1f}" y="{:.1f}">alternate</text>)", second + 32,
                     y + 4);
  svg += fmt::format(R"(<path class="scale" d="M{:.1f} {:.1f}v6h{:.1f}v-6"/>)", right - bar, y - 3,
                     bar);
  svg += fmt::format(R"(<text class="key end" x="{:.1f}" y="{:.1f}">{} NM</text>)", right - bar - 5,
                     y + 4, miles);
  return svg;
}

std::string gridOf(const MapLayout& layout, const std::string& id) {
  const Box& frame = layout.frame;
  const std::string rectangle =
      fmt::format(R"(x="{:.1f}" y="{:.1f}" width="{:.1f}" height="{:.1f}")", frame.x, frame.y,
                  frame.width, frame.height);
  std::string svg = fmt::format(R"(<clipPath id="{}-frame"><rect {}/></clipPath>)", id, rectangle);
  svg += fmt::format(R"svg(<rect class="ground" {}/><g clip-path="url(#{}-frame)">)svg", rectangle,
                     id);
  for (const GridLine& line : layout.grid) {
    svg += fmt::format(R"(<path class="grid" d="{}"/>)", pathOfLine(line.line));
  }
  svg += fmt::format(R"(</g><rect class="frame" {}/>)", rectangle);
  for (const GridLine& line : layout.grid) svg += textIn(line.label, "gridtext", layout.fontSize);
  return svg;
}

}  // namespace

std::string mapSvg(const MapLayout& layout, const std::string& title,
                   const std::string& description, const std::string& id) {
  std::string svg = fmt::format(
      R"(<svg class="map" role="img" aria-labelledby="{0}-title {0}-desc" viewBox="0 0 {1:.0f} {2:.0f}" )"
      R"(font-size="{3}"><title id="{0}-title">{4}</title><desc id="{0}-desc">{5}</desc>)",
      id, layout.width, layout.height + legendHeight, layout.fontSize, escaped(title),
      escaped(description));
  svg += gridOf(layout, id);
  for (const DrawnLeg& drawn : layout.legs) {
    svg += fmt::format(R"(<path class="{}" d="{}"/>)",
                       drawn.leg.isAlternate ? "leg alternate" : "leg", pathOfLine(drawn.line));
  }
  for (const DrawnLeg& drawn : layout.legs) svg += arrowOn(drawn) + leaderOf(drawn.label);
  for (const DrawnPoint& drawn : layout.points) svg += leaderOf(drawn.label) + symbolOf(drawn);
  for (const DrawnLeg& drawn : layout.legs) {
    svg += textIn(drawn.label, drawn.leg.isAlternate ? "legtext alternate" : "legtext",
                  layout.fontSize);
  }
  for (const DrawnPoint& drawn : layout.points) {
    svg += textIn(drawn.label, drawn.point.kind == PointKind::aerodrome ? "name" : "name minor",
                  layout.fontSize);
  }
  return svg + legendOf(layout) + "</svg>";
}

}  // namespace cli::pack
