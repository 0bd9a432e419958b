#include <charconv>
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "simulator/charts/base_map.h"
#include "simulator/charts/chart_layers.h"
#include "simulator/charts/symbols.h"
#include "simulator/data/weather.h"

namespace sim {

namespace {

// From the title: "FL340" is level 340 and "A050" 50 (5,000 ft).
int levelOf(const std::string& title) {
  const auto flightLevel = title.find("FL");
  const auto altitude = title.find(" A");
  const auto start = flightLevel != std::string::npos ? flightLevel + 2
                     : altitude != std::string::npos  ? altitude + 2
                                                      : title.size();
  int level = 340;
  std::from_chars(title.data() + start, title.data() + title.size(), level);
  return level;
}

Colour speedColour(int speedKt) {
  return speedKt >= 80   ? ink::red
         : speedKt >= 50 ? ink::purple
         : speedKt >= 25 ? ink::blue
                         : ink::isobar;
}

// Clockwise from up on the drawing: the bearing, turned by the convergence of the meridians.
double drawingAngle(const Projection& map, double latitude, double longitude, int bearing) {
  const MapPoint here = map.toMap(latitude, longitude);
  const MapPoint north = map.toMap(latitude + 0.1, longitude);
  const double turn = std::atan2(north.x - here.x, here.y - north.y) * 180 / std::numbers::pi;
  return bearing + turn;
}

std::string temperatureText(int temperature) {
  return std::string(temperature > 0   ? "+"
                     : temperature < 0 ? "\u2212"
                                       : "") +
         std::to_string(std::abs(temperature));
}

}  // namespace

void drawGpwt(Canvas& canvas, const Projection& map, const ChartRequest& request) {
  const int level = levelOf(request.title);
  for (int latitude = -55; latitude <= 0; latitude += 5) {
    for (int longitude = 80; longitude <= 190; longitude += 5) {
      const MapPoint at = map.toMap(latitude, longitude);
      // Towards the pole every other place is left out, so that nothing touches.
      if (latitude < -42 && longitude % 10 != 0) {
        continue;
      }
      if (!map.frame().contains(at, 28)) {
        continue;
      }
      const Wind wind = windAt(latitude, longitude, level, request.valid);
      const double angle = drawingAngle(map, latitude, longitude, wind.direction);
      drawBarb(canvas, at, angle, wind.speedKt, speedColour(wind.speedKt), 22);
      // The temperature stands on the side of the staff that has no feathers.
      const double lee = (angle + 108) * std::numbers::pi / 180;
      const MapPoint label{at.x + 10 * std::sin(lee), at.y - 7 * std::cos(lee)};
      canvas.text(label, temperatureText(wind.temperatureC), 7.5, ink::text, Align::centre, false,
                  1.2);
    }
  }
}

void drawGpwtLegend(Canvas& canvas) {
  struct Sample {
    int speed;
    const char* words;
  };
  static constexpr Sample samples[] = {
      {5, "5 kt"}, {10, "10 kt"}, {35, "35 kt"}, {65, "65 kt"}, {95, "95 kt"}};
  double x = 20;
  for (const Sample& sample : samples) {
    drawBarb(canvas, {x, legendY}, 90, sample.speed, speedColour(sample.speed), 24);
    canvas.text({x + 32, legendY}, sample.words, 9, ink::text);
    x += 82;
  }
  canvas.text({x + 6, legendY},
              "Wind from the feathered end; temperature in \u00b0C beside the station", 9,
              ink::text);
}

}  // namespace sim
