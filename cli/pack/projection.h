#pragma once

#include "cli/pack/great_circle.h"
#include "cli/pack/map_layout.h"

#include <vector>

namespace cli::pack {

/// The stereographic projection around a centre: angles stay true, and there are no seams at poles
/// and antimeridian. On the plane x runs east and y south; its unit is the earth's radius at the
/// centre.
class Projection {
 public:
  explicit Projection(Position centre);

  [[nodiscard]] Spot project(Position at) const;
  [[nodiscard]] Position unproject(Spot spot) const;

 private:
  double sine_;
  double cosine_;
  double lon_;
};

/// The middle of positions on the sphere; the first one where they have none.
Position centreOf(const std::vector<Position>& positions);

}  // namespace cli::pack
