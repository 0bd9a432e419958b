#pragma once

#include <vector>

#include "simulator/charts/projection.h"

namespace sim {

// Values on a regular grid over a rectangle of the drawing.
struct Grid {
  int columns, rows;
  double left, top, step;
  std::vector<double> values;  // row by row

  double at(int column, int row) const {
    return values[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                  static_cast<std::size_t>(column)];
  }
};

template <typename Field>
Grid sampleGrid(const MapRect& rect, double step, Field&& field) {
  Grid grid{static_cast<int>((rect.right - rect.left) / step) + 2,
            static_cast<int>((rect.bottom - rect.top) / step) + 2,
            rect.left,
            rect.top,
            step,
            {}};
  for (int row = 0; row < grid.rows; ++row) {
    for (int column = 0; column < grid.columns; ++column) {
      grid.values.push_back(field(MapPoint{rect.left + column * step, rect.top + row * step}));
    }
  }
  return grid;
}

using Polyline = std::vector<MapPoint>;

// The lines of one value, each joined to its full length (marching squares).
std::vector<Polyline> contourLines(const Grid& grid, double level);

}  // namespace sim
