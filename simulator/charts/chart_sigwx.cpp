#include <algorithm>
#include <cmath>
#include <numbers>

#include "simulator/charts/base_map.h"
#include "simulator/charts/chart_layers.h"
#include "simulator/charts/contours.h"
#include "simulator/charts/symbols.h"
#include "simulator/data/atmosphere.h"
#include "simulator/data/pressure.h"
#include "simulator/data/weather.h"

namespace sim {

namespace {

bool highLevel(const ChartRequest& request) {
  return request.title.find("HIGH") != std::string::npos;
}

// An uneven oval about a place; the radii are in degrees.
Polyline areaAround(const Projection& map, GeoPoint centre, double width, double height,
                    double tilt) {
  Polyline outline;
  for (int step = 0; step < 48; ++step) {
    const double angle = step * std::numbers::pi / 24;
    const double stretch = 1 + 0.13 * std::sin(2 * angle + centre.longitude) +
                           0.08 * std::cos(3 * angle + centre.latitude);
    const double x = width * stretch * std::cos(angle);
    const double y = height * stretch * std::sin(angle);
    outline.push_back(map.toMap(centre.latitude + y, centre.longitude + x + tilt * y));
  }
  return outline;
}

// Labels are written when all areas and lines are there, so that nothing crosses them.
struct Note {
  MapPoint anchor;
  std::vector<std::string> lines;
  Colour colour;
};

// Tries the middle of the area and then places around it; a leader joins a label set apart.
void annotate(Canvas& canvas, const Projection& map, const Note& note) {
  static constexpr MapPoint offsets[] = {{0, 0},     {0, 44},  {0, -44},  {80, 0},
                                         {-80, 0},   {80, 50}, {-80, 50}, {80, -50},
                                         {-80, -50}, {0, 84},  {0, -84}};
  for (const MapPoint& offset : offsets) {
    const MapPoint middle{note.anchor.x + offset.x, note.anchor.y + offset.y};
    const MapRect room = labelBoxRect(canvas, middle, note.lines);
    if (!map.frame().contains({room.left, room.top}, 4) ||
        !map.frame().contains({room.right, room.bottom}, 4) || !canvas.reserve(room)) {
      continue;
    }
    if (offset.x != 0 || offset.y != 0) {
      canvas.line({note.anchor, middle});
      canvas.stroke(note.colour, 0.8);
    }
    drawLabelBox(canvas, middle, note.lines, note.colour);
    return;
  }
}

using Lines = std::vector<std::string>;

class SigwxLayer {
 public:
  SigwxLayer(Canvas& canvas, const Projection& map, std::chrono::sys_seconds valid, bool high)
      : canvas_(canvas), map_(map), valid_(valid), high_(high), lows_(frontalLows(valid)) {}

  void draw() {
    if (high_) {
      drawJet();
      addTropopause();
    } else {
      drawFreezingLevels();
    }
    drawConvection({-11.5, 129}, 10, 3.6, 0,
                   high_ ? Lines{"OCNL EMBD CB", "XXX / FL480"} : Lines{"OCNL EMBD CB", "XXX"});
    drawConvection({-21.5, 147}, 3.4, 4.6, -0.35,
                   high_ ? Lines{"ISOL CB", "XXX / FL420"} : Lines{"ISOL CB", "4000FT / XXX"});
    drawFrontalWeather();
    drawTurbulence();
    for (const Note& note : notes_) {
      annotate(canvas_, map_, note);
    }
    if (!high_) {
      labelFreezingLevels();
    }
    drawCities(canvas_, map_);
  }

 private:
  MapPoint at(GeoPoint place) const { return map_.toMap(place.latitude, place.longitude); }

  void drawConvection(GeoPoint centre, double width, double height, double tilt,
                      const Lines& lines) {
    drawScallopedArea(canvas_, areaAround(map_, centre, width, height, tilt), ink::red);
    notes_.push_back({at(centre), lines, ink::red});
  }

  void drawDashed(GeoPoint centre, double width, double height, Colour colour, const Lines& lines) {
    drawDashedArea(canvas_, areaAround(map_, centre, width, height, 0), colour);
    notes_.push_back({at(centre), lines, colour});
  }

  static GeoPoint aheadOf(const FrontalLow& low) {
    const GeoPoint middle = low.coldFront[low.coldFront.size() / 2];
    return {middle.latitude + 1, middle.longitude + 5};
  }

  void drawFrontalWeather() {
    for (const FrontalLow& low : lows_) {
      Polyline line;
      for (const GeoPoint& point : low.coldFront) {
        line.push_back(at(point));
      }
      drawFront(canvas_, line, FrontKind::cold);
      const GeoPoint ahead = aheadOf(low);
      if (map_.frame().contains(at(ahead), 50)) {
        drawConvection(
            ahead, 3.2, 4.2, -0.45,
            high_ ? Lines{"ISOL EMBD CB", "XXX / FL340"} : Lines{"ISOL EMBD CB", "2000FT / XXX"});
      }
      const GeoPoint behind{ahead.latitude - 5, ahead.longitude - 13};
      if (!high_ && map_.frame().contains(at(behind), 50)) {
        drawDashed(behind, 4.6, 2.6, ink::blue, {"MOD ICE", "FL060 / FL180"});
      }
    }
  }

  // The part of the jet stream that is farthest from the weather of the fronts.
  double quietLongitude() const {
    double best = 140;
    double farthest = 0;
    for (int longitude = 112; longitude <= 160; longitude += 2) {
      double nearest = 90;
      for (const FrontalLow& low : lows_) {
        nearest = std::min(nearest, std::abs(aheadOf(low).longitude - 3 - longitude));
      }
      if (nearest > farthest) {
        farthest = nearest;
        best = longitude;
      }
    }
    return best;
  }

  void drawTurbulence() {
    if (!high_) {
      drawDashed({-36.5, 149.5}, 2.6, 2.6, ink::purple, {"MOD MTW", "6000FT / FL180"});
      return;
    }
    const double longitude = quietLongitude();
    drawDashed({jetLatitude(longitude, valid_) - 2.6, longitude}, 6, 2.4, ink::purple,
               {"SEV TURB", "FL280 / FL400"});
  }

  void drawJet() {
    Polyline axis;
    for (int half = 194; half <= 336; ++half) {
      const double longitude = half / 2.0;
      axis.push_back(at({jetLatitude(longitude, valid_), longitude}));
    }
    drawArrow(canvas_, axis, ink::brown, 2.6);
    for (const double longitude : {104.0, 131.0, 159.0}) {
      const double latitude = jetLatitude(longitude, valid_);
      const Wind wind = windAt(latitude, longitude, 390, valid_);
      notes_.push_back({at({latitude, longitude}),
                        {"FL390 " + std::to_string(wind.speedKt) + "KT"},
                        ink::brown});
    }
  }

  void addTropopause() {
    struct Height {
      GeoPoint place;
      const char* words;
    };
    static constexpr Height heights[] = {{{-20, 113}, "TROP 520"}, {{-23, 167}, "TROP 510"},
                                         {{-47, 112}, "TROP 310"}, {{-47, 160}, "TROP 320"},
                                         {{-40, 122}, "TROP 380"}, {{-22, 133}, "TROP 510"}};
    for (const Height& height : heights) {
      notes_.push_back({at(height.place), {height.words}, ink::green});
    }
  }

  static constexpr double freezingParallels[] = {-15, -25, -35, -45};

  // The lines wave as the jet stream does, but less.
  MapPoint freezingPlace(double latitude, double longitude) const {
    return at({latitude + 0.4 * (jetLatitude(longitude, valid_) + 31), longitude});
  }

  void drawFreezingLevels() {
    static constexpr double dashes[] = {2, 3.5};
    for (const double latitude : freezingParallels) {
      Polyline line;
      for (int longitude = 70; longitude <= 205; ++longitude) {
        line.push_back(freezingPlace(latitude, longitude));
      }
      canvas_.line(line);
      cairo_set_dash(canvas_.pen(), dashes, 2, 0);
      canvas_.stroke(ink::green, 1.2);
      cairo_set_dash(canvas_.pen(), nullptr, 0, 0);
    }
  }

  // Only where there is room, and after everything else.
  void labelFreezingLevels() {
    for (const double latitude : freezingParallels) {
      const std::string level = std::to_string(freezingLevel(latitude, valid_));
      const std::string words = "0\u00b0: FL" + std::string(3 - level.size(), '0') + level;
      for (const double longitude : {104.0, 122.0, 136.0, 165.0}) {
        const MapPoint middle = freezingPlace(latitude, longitude);
        if (canvas_.reserve({middle.x - 26, middle.y - 6, middle.x + 26, middle.y + 6})) {
          canvas_.text(middle, words, 8, ink::green, Align::centre, true, 2);
        }
      }
    }
  }

  Canvas& canvas_;
  const Projection& map_;
  std::chrono::sys_seconds valid_;
  bool high_;
  std::vector<FrontalLow> lows_;
  std::vector<Note> notes_;
};

}  // namespace

void drawSigwx(Canvas& canvas, const Projection& map, const ChartRequest& request) {
  SigwxLayer(canvas, map, request.valid, highLevel(request)).draw();
}

void drawSigwxLegend(Canvas& canvas, const ChartRequest& request) {
  const auto outline = [](double x) {
    return Polyline{
        {x, legendY - 7}, {x + 30, legendY - 7}, {x + 30, legendY + 7}, {x, legendY + 7}};
  };
  drawScallopedArea(canvas, outline(20), ink::red);
  canvas.text({62, legendY}, "CB area", 9, ink::text);
  drawDashedArea(canvas, outline(124), ink::purple);
  canvas.text({162, legendY}, "Turbulence", 9, ink::text);
  if (highLevel(request)) {
    drawArrow(canvas, {{240, legendY}, {270, legendY}}, ink::brown, 2.6);
    canvas.text({286, legendY}, "Jet stream", 9, ink::text);
    canvas.text({360, legendY}, "TROP 510", 8, ink::green, Align::left, true);
    canvas.text({410, legendY}, "Tropopause", 9, ink::text);
  } else {
    drawDashedArea(canvas, outline(240), ink::blue);
    canvas.text({278, legendY}, "Icing", 9, ink::text);
    canvas.text({330, legendY}, "0\u00b0: FL140", 8, ink::green, Align::left, true);
    canvas.text({380, legendY}, "Freezing level", 9, ink::text);
  }
  drawFront(canvas, {{490, legendY - 2}, {532, legendY - 2}}, FrontKind::cold);
  canvas.text({541, legendY}, "Cold front", 9, ink::text);
  canvas.text({786, legendY}, "XXX: beyond the chart's limit", 9, ink::quiet, Align::right);
}

}  // namespace sim
