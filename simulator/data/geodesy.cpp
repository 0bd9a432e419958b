#include "simulator/data/geodesy.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace sim {

namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double milesPerRadian = 60 / degree;

using Vector = std::array<double, 3>;

Vector toVector(GeoPoint point) {
  const double latitude = point.latitude * degree;
  const double longitude = point.longitude * degree;
  return {std::cos(latitude) * std::cos(longitude), std::cos(latitude) * std::sin(longitude),
          std::sin(latitude)};
}

GeoPoint toPoint(const Vector& v) {
  return {std::atan2(v[2], std::hypot(v[0], v[1])) / degree, std::atan2(v[1], v[0]) / degree};
}

std::string padded(int value, std::size_t digits) {
  const std::string text = std::to_string(value);
  return std::string(digits - std::min(digits, text.size()), '0') + text;
}

std::string compactPart(double value, std::size_t digits, const char* hemispheres) {
  const int minutes = static_cast<int>(std::lround(std::abs(value) * 60));
  return padded(minutes / 60, digits) + padded(minutes % 60, 2) + hemispheres[value < 0 ? 1 : 0];
}

}  // namespace

double distanceBetween(GeoPoint from, GeoPoint to) {
  const double height = std::sin((to.latitude - from.latitude) * degree / 2);
  const double width = std::sin((to.longitude - from.longitude) * degree / 2);
  const double chord = height * height + std::cos(from.latitude * degree) *
                                             std::cos(to.latitude * degree) * width * width;
  return 2 * std::asin(std::min(1.0, std::sqrt(chord))) * milesPerRadian;
}

GeoPoint pointAt(GeoPoint from, double bearing, double distance) {
  const double arc = distance / milesPerRadian;
  const double latitude = from.latitude * degree;
  const double course = bearing * degree;
  const double sine =
      std::sin(latitude) * std::cos(arc) + std::cos(latitude) * std::sin(arc) * std::cos(course);
  const double east = std::atan2(std::sin(course) * std::sin(arc) * std::cos(latitude),
                                 std::cos(arc) - std::sin(latitude) * sine);
  return {std::asin(std::clamp(sine, -1.0, 1.0)) / degree,
          std::remainder(from.longitude + east / degree, 360.0)};
}

GeoPoint pointBetween(GeoPoint from, GeoPoint to, double fraction) {
  const double arc = distanceBetween(from, to) / milesPerRadian;
  const double sine = std::sin(arc);
  if (sine < 1e-9) {
    return from;
  }
  const double first = std::sin((1 - fraction) * arc) / sine;
  const double second = std::sin(fraction * arc) / sine;
  const Vector a = toVector(from);
  const Vector b = toVector(to);
  return toPoint(
      {first * a[0] + second * b[0], first * a[1] + second * b[1], first * a[2] + second * b[2]});
}

std::string compactText(GeoPoint point) {
  return compactPart(point.latitude, 2, "NS") + compactPart(point.longitude, 3, "EW");
}

std::string decimalDegrees(double degrees) {
  char text[64];
  const auto end = std::to_chars(text, text + sizeof text, degrees, std::chars_format::fixed, 6);
  return std::string(text, end.ptr);
}

}  // namespace sim
