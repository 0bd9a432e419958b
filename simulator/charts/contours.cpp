#include "simulator/charts/contours.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace sim {

namespace {

// A line piece runs between two crossed edges of the grid; an edge's number is unique, so that
// pieces of neighbouring cells meet in the same number.
using Edge = int;

struct Pieces {
  std::unordered_map<Edge, std::array<Edge, 2>> neighbours;  // -1: none
  std::vector<Edge> order;                                   // as found, for repeatable results

  void join(Edge a, Edge b) {
    add(a, b);
    add(b, a);
  }

 private:
  void add(Edge from, Edge to) {
    const auto [place, fresh] = neighbours.try_emplace(from, std::array<Edge, 2>{-1, -1});
    if (fresh) {
      order.push_back(from);
    }
    place->second[place->second[0] < 0 ? 0U : 1U] = to;
  }
};

class Marcher {
 public:
  Marcher(const Grid& grid, double level) : grid_(grid), level_(level) {}

  std::vector<Polyline> run() {
    for (int row = 0; row + 1 < grid_.rows; ++row) {
      for (int column = 0; column + 1 < grid_.columns; ++column) {
        cell(column, row);
      }
    }
    return trace();
  }

 private:
  Edge horizontal(int column, int row) const { return 2 * (row * grid_.columns + column); }
  Edge vertical(int column, int row) const { return horizontal(column, row) + 1; }
  bool above(int column, int row) const { return grid_.at(column, row) > level_; }

  void cell(int c, int r) {
    const Edge top = horizontal(c, r);
    const Edge bottom = horizontal(c, r + 1);
    const Edge left = vertical(c, r);
    const Edge right = vertical(c + 1, r);
    std::array<Edge, 4> crossed{};
    std::size_t count = 0;
    const bool a = above(c, r);
    const bool b = above(c + 1, r);
    const bool d = above(c + 1, r + 1);
    const bool e = above(c, r + 1);
    if (a != b) crossed[count++] = top;
    if (b != d) crossed[count++] = right;
    if (d != e) crossed[count++] = bottom;
    if (e != a) crossed[count++] = left;
    if (count == 2) {
      pieces_.join(crossed[0], crossed[1]);
    } else if (count == 4) {
      const double middle =
          (grid_.at(c, r) + grid_.at(c + 1, r) + grid_.at(c, r + 1) + grid_.at(c + 1, r + 1)) / 4;
      if ((middle > level_) == a) {
        pieces_.join(top, right);
        pieces_.join(bottom, left);
      } else {
        pieces_.join(top, left);
        pieces_.join(bottom, right);
      }
    }
  }

  MapPoint point(Edge edge) const {
    const int column = edge / 2 % grid_.columns;
    const int row = edge / 2 / grid_.columns;
    const bool down = edge % 2 != 0;
    const double from = grid_.at(column, row);
    const double to = down ? grid_.at(column, row + 1) : grid_.at(column + 1, row);
    const double part = (level_ - from) / (to - from);
    return {grid_.left + grid_.step * (column + (down ? 0 : part)),
            grid_.top + grid_.step * (row + (down ? part : 0))};
  }

  std::vector<Polyline> trace() {
    std::vector<Polyline> lines;
    // Open lines first, from their ends; what remains then is closed.
    for (const bool open : {true, false}) {
      for (const Edge start : pieces_.order) {
        const auto found = pieces_.neighbours.find(start);
        if (found != pieces_.neighbours.end() && (!open || found->second[1] < 0)) {
          lines.push_back(follow(start));
        }
      }
    }
    return lines;
  }

  Polyline follow(Edge start) {
    Polyline line;
    Edge previous = -1;
    Edge edge = start;
    while (edge >= 0) {
      line.push_back(point(edge));
      const auto found = pieces_.neighbours.find(edge);
      if (found == pieces_.neighbours.end()) {
        break;  // back at the start of a closed line
      }
      const auto next = found->second;
      pieces_.neighbours.erase(found);
      const Edge ahead = next[0] == previous ? next[1] : next[0];
      previous = edge;
      edge = ahead;
    }
    return line;
  }

  const Grid& grid_;
  double level_;
  Pieces pieces_;
};

}  // namespace

std::vector<Polyline> contourLines(const Grid& grid, double level) {
  return Marcher(grid, level).run();
}

}  // namespace sim
