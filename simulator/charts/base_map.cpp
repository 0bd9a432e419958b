#include "simulator/charts/base_map.h"

#include <cmath>
#include <cstdio>
#include <string_view>

#include "simulator/charts/coastline.h"
#include "simulator/data/locations.h"

namespace sim {

namespace {

constexpr MapRect mapFrame{12, 52, 788, 550};
constexpr int graticuleStep = 10;

std::vector<MapPoint> project(CoastShape shape, const Projection& map) {
  std::vector<MapPoint> points;
  points.reserve(shape.size());
  for (const CoastPoint& point : shape) {
    points.push_back(map.toMap(point.latitude, point.longitude));
  }
  return points;
}

std::string degrees(double value, char positive, char negative) {
  const int whole = static_cast<int>(std::lround(std::abs(value)));
  const std::string words = std::to_string(whole) + "\u00b0";
  return value == 0 ? words : words + (value < 0 ? negative : positive);
}

std::string validityText(std::chrono::sys_seconds valid) {
  static constexpr const char* months[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                           "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
  const auto day = std::chrono::floor<std::chrono::days>(valid);
  const std::chrono::year_month_day date{day};
  const std::chrono::hh_mm_ss clock{valid - day};
  char text[48];
  static_cast<void>(std::snprintf(
      text, sizeof text, "VALID %02d%02d UTC %02u %s %d", static_cast<int>(clock.hours().count()),
      static_cast<int>(clock.minutes().count()), static_cast<unsigned>(date.day()),
      months[(static_cast<unsigned>(date.month()) - 1) % 12], static_cast<int>(date.year())));
  return text;
}

struct EdgeLabel {
  MapPoint at;
  std::string words;
};

// Where the parallels enter the map on its left side.
std::vector<EdgeLabel> parallelLabels(const Projection& map) {
  std::vector<EdgeLabel> labels;
  for (int latitude = -50; latitude <= 0; latitude += graticuleStep) {
    for (int tenths = 600; tenths < 1500; ++tenths) {
      const double longitude = tenths / 10.0;
      const MapPoint at = map.toMap(latitude, longitude);
      if (at.x >= map.frame().left + 5) {
        if (map.frame().contains(at, 5)) {
          labels.push_back({at, degrees(latitude, 'N', 'S')});
        }
        break;
      }
    }
  }
  return labels;
}

// Where the meridians leave the map at its bottom.
std::vector<EdgeLabel> meridianLabels(const Projection& map) {
  std::vector<EdgeLabel> labels;
  for (int longitude = 80; longitude <= 180; longitude += graticuleStep) {
    for (int twentieths = -1300; twentieths < 0; ++twentieths) {
      const double latitude = twentieths / 20.0;
      const MapPoint at = map.toMap(latitude, longitude);
      if (at.y <= map.frame().bottom) {
        if (at.x > map.frame().left + 12 && at.x < map.frame().right - 12) {
          labels.push_back({{at.x, map.frame().bottom + 6}, degrees(longitude, 'E', 'W')});
        }
        break;
      }
    }
  }
  return labels;
}

}  // namespace

Projection regionProjection() {
  return Projection(mapFrame, -28, 136, 585);
}

void clipToMap(Canvas& canvas, const Projection& map) {
  const MapRect& f = map.frame();
  cairo_rectangle(canvas.pen(), f.left, f.top, f.right - f.left, f.bottom - f.top);
  cairo_clip(canvas.pen());
}

void drawLandAndSea(Canvas& canvas, const Projection& map) {
  canvas.ink(ink::sea);
  cairo_paint(canvas.pen());
  std::vector<std::vector<MapPoint>> shapes{project(australiaCoast(), map)};
  for (const CoastShape shape : islandCoasts()) {
    shapes.push_back(project(shape, map));
  }
  for (const auto& shape : shapes) {
    canvas.line(shape, true);
    canvas.ink(ink::land);
    cairo_fill_preserve(canvas.pen());
    canvas.stroke(ink::coast, 0.9);
  }
}

void drawGraticule(Canvas& canvas, const Projection& map) {
  for (int longitude = 60; longitude <= 220; longitude += graticuleStep) {
    std::vector<MapPoint> points;
    for (int latitude = -65; latitude <= 5; latitude += 5) {
      points.push_back(map.toMap(latitude, longitude));
    }
    canvas.line(points);
  }
  for (int latitude = -60; latitude <= 0; latitude += graticuleStep) {
    std::vector<MapPoint> points;
    for (int longitude = 60; longitude <= 220; longitude += 2) {
      points.push_back(map.toMap(latitude, longitude));
    }
    canvas.line(points);
  }
  canvas.stroke(ink::graticule, 0.5);
  for (const EdgeLabel& label : parallelLabels(map)) {
    canvas.reserve({label.at.x - 2, label.at.y - 6, label.at.x + 24, label.at.y + 6});
  }
}

void drawCities(Canvas& canvas, const Projection& map) {
  struct City {
    std::string_view code, label;
    double dx, dy;
    Align align;
  };
  static constexpr City cities[] = {
      {"YSSY", "Sydney", 5, 0, Align::left},      {"YMML", "Melbourne", -5, -6, Align::right},
      {"YBBN", "Brisbane", 5, 0, Align::left},    {"YPPH", "Perth", -5, 0, Align::right},
      {"YPAD", "Adelaide", -5, -7, Align::right}, {"YPDN", "Darwin", 5, 6, Align::left},
      {"YMHB", "Hobart", 5, 2, Align::left},      {"YBAS", "Alice Springs", 5, 0, Align::left},
      {"YBCS", "Cairns", 5, -2, Align::left}};
  for (const City& city : cities) {
    const Location* location = findLocation(city.code);
    if (location == nullptr) {
      continue;
    }
    const MapPoint at = map.toMap(location->latitude, location->longitude);
    if (!canvas.isFree({at.x - 2, at.y - 2, at.x + 2, at.y + 2})) {
      continue;
    }
    cairo_new_sub_path(canvas.pen());
    cairo_arc(canvas.pen(), at.x, at.y, 1.6, 0, 7);
    canvas.fill(ink::quiet);
    const std::string label(city.label);
    const double length = canvas.textWidth(label, 7.5);
    const double left = city.align == Align::left ? at.x + city.dx : at.x + city.dx - length;
    if (canvas.reserve({left, at.y + city.dy - 5, left + length, at.y + city.dy + 5})) {
      canvas.text({left, at.y + city.dy}, label, 7.5, ink::quiet, Align::left, false, 1.2);
    }
  }
}

void drawFurniture(Canvas& canvas, const Projection& map, const ChartRequest& request) {
  cairo_rectangle(canvas.pen(), 0, 0, Canvas::width, 42);
  canvas.fill(ink::bar);
  canvas.text({14, 16}, request.title, 15, ink::white, Align::left, true);
  canvas.text({14, 32}, "AUSTRALIAN REGION  \u00b7  SIMULATED DATA, NOT FOR OPERATIONAL USE", 7.5,
              ink::graticule);
  canvas.text({786, 16}, validityText(request.valid), 12, ink::white, Align::right, true);
  canvas.text({786, 32}, "LAMBERT CONFORMAL  \u00b7  10\u00b0S 40\u00b0S", 7.5, ink::graticule,
              Align::right);
  const MapRect& f = map.frame();
  cairo_rectangle(canvas.pen(), f.left, f.top, f.right - f.left, f.bottom - f.top);
  canvas.stroke(ink::bar, 1.2);
  for (const EdgeLabel& label : parallelLabels(map)) {
    canvas.text(label.at, label.words, 7.5, ink::quiet, Align::left, false, 1.5);
  }
  for (const EdgeLabel& label : meridianLabels(map)) {
    canvas.text(label.at, label.words, 7.5, ink::quiet, Align::centre);
  }
}

}  // namespace sim
