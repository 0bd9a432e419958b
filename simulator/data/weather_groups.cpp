#include "simulator/data/weather_groups.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace sim {

namespace {

std::string digits(int value, int width) {
  char text[16];
  static_cast<void>(std::snprintf(text, sizeof text, "%0*d", width, value));
  return text;
}

std::string cloud(int oktas, int baseFt) {
  const char* amount = oktas <= 2 ? "FEW" : oktas <= 4 ? "SCT" : oktas <= 7 ? "BKN" : "OVC";
  return std::string(amount) + digits(baseFt / 100, 3);
}

}  // namespace

std::string twoDigits(int value) {
  return digits(value, 2);
}

std::string windGroup(const Surface& surface) {
  std::string group = digits(surface.direction, 3) + digits(surface.speedKt, 2);
  if (surface.gustKt > 0) {
    group += 'G' + digits(surface.gustKt, 2);
  }
  return group + "KT";
}

std::string weatherGroups(const Surface& surface) {
  const bool lowCloud = surface.lowOktas > 0;
  if (surface.visibilityM >= 9999 && surface.showers == 0 &&
      (!lowCloud || surface.lowBaseFt >= 5000)) {
    return "CAVOK";
  }
  std::string text = digits(std::min(surface.visibilityM, 9999), 4);
  if (surface.showers > 0) {
    text += surface.showers == 2 ? " TSRA" : " SHRA";
  }
  if (lowCloud) {
    text += ' ' + cloud(surface.lowOktas, surface.lowBaseFt);
  }
  if (surface.showers == 2) {
    text += " SCT" + digits(surface.lowBaseFt / 100 + 10, 3) + "CB";
  }
  if (surface.highOktas > 2) {
    text += ' ' + cloud(surface.highOktas, surface.highBaseFt);
  }
  if (!lowCloud && surface.showers == 0 && surface.highOktas <= 2) {
    text += " NSC";
  }
  return text;
}

std::string temperatureGroup(int temperature) {
  return std::string(temperature < 0 ? "M" : "") + digits(std::abs(temperature), 2);
}

}  // namespace sim
