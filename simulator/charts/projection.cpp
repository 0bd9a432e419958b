#include "simulator/charts/projection.h"

#include <cmath>
#include <numbers>

namespace sim {

namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double parallel1 = 10 * degree;
constexpr double parallel2 = 40 * degree;

// The formulas are those of the northern hemisphere, so latitudes count positive to the south.
double half(double south) {
  return std::tan(std::numbers::pi / 4 + south / 2);
}

}  // namespace

Projection::Projection(MapRect frame, double latitude, double longitude, double scale)
    : frame_(frame), centreLongitude_(longitude), scale_(scale) {
  cone_ = std::log(std::cos(parallel1) / std::cos(parallel2)) /
          std::log(half(parallel2) / half(parallel1));
  factor_ = std::cos(parallel1) * std::pow(half(parallel1), cone_) / cone_;
  centreRadius_ = radius(latitude);
}

double Projection::radius(double latitude) const {
  return factor_ / std::pow(half(-latitude * degree), cone_);
}

MapPoint Projection::toMap(double latitude, double longitude) const {
  const double r = radius(latitude);
  const double angle = cone_ * (longitude - centreLongitude_) * degree;
  return {(frame_.left + frame_.right) / 2 + scale_ * r * std::sin(angle),
          (frame_.top + frame_.bottom) / 2 - scale_ * (r * std::cos(angle) - centreRadius_)};
}

void Projection::toGeo(MapPoint point, double& latitude, double& longitude) const {
  const double x = (point.x - (frame_.left + frame_.right) / 2) / scale_;
  const double y = centreRadius_ - (point.y - (frame_.top + frame_.bottom) / 2) / scale_;
  const double r = std::hypot(x, y);
  longitude = centreLongitude_ + std::atan2(x, y) / cone_ / degree;
  latitude = -(2 * std::atan(std::pow(factor_ / r, 1 / cone_)) - std::numbers::pi / 2) / degree;
}

}  // namespace sim
