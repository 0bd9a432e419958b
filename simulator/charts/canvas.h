#pragma once

#include <cairo.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "simulator/charts/chart.h"
#include "simulator/charts/projection.h"

namespace sim {

struct Colour {
  double red, green, blue;
};

namespace ink {
inline constexpr Colour paper{0.985, 0.985, 0.978};
inline constexpr Colour sea{0.894, 0.933, 0.957};
inline constexpr Colour land{0.965, 0.953, 0.914};
inline constexpr Colour coast{0.50, 0.53, 0.54};
inline constexpr Colour graticule{0.74, 0.79, 0.82};
inline constexpr Colour text{0.15, 0.19, 0.24};
inline constexpr Colour quiet{0.42, 0.47, 0.52};
inline constexpr Colour bar{0.13, 0.22, 0.33};
inline constexpr Colour white{1, 1, 1};
inline constexpr Colour isobar{0.22, 0.34, 0.48};
inline constexpr Colour blue{0.11, 0.32, 0.66};
inline constexpr Colour red{0.74, 0.17, 0.15};
inline constexpr Colour green{0.10, 0.45, 0.28};
inline constexpr Colour brown{0.55, 0.33, 0.10};
inline constexpr Colour purple{0.45, 0.20, 0.55};
}  // namespace ink

enum class Align { left, centre, right };

// One chart under the pen: 800 x 600 units, whatever the resolution.
class Canvas {
 public:
  static constexpr double width = 800;
  static constexpr double height = 600;

  Canvas(Format format, bool high, const std::string& title, std::chrono::sys_seconds valid);

  cairo_t* pen() const { return pen_.get(); }
  std::string finish();

  void ink(Colour colour, double opacity = 1) const;
  void stroke(Colour colour, double lineWidth) const;  // the current path
  void fill(Colour colour, double opacity = 1) const;
  void line(const std::vector<MapPoint>& points, bool closed = false) const;
  void box(const MapRect& rect, double corner) const;

  // Places text by the middle of its height; a halo keeps it legible over lines.
  void text(MapPoint at, const std::string& words, double size, Colour colour,
            Align align = Align::left, bool bold = false, double halo = 0) const;
  double textWidth(const std::string& words, double size, bool bold = false) const;

  // Claims room for a label; false when another label has any of it.
  bool reserve(const MapRect& rect);
  bool isFree(const MapRect& rect) const;

 private:
  void font(double size, bool bold) const;

  Format format_;
  std::string bytes_;
  std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
  std::unique_ptr<cairo_t, decltype(&cairo_destroy)> pen_;
  std::vector<MapRect> taken_;
};

}  // namespace sim
