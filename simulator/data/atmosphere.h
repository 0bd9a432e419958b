#pragma once

#include "simulator/data/locations.h"
#include "simulator/data/time.h"

namespace sim {

// The surface weather of a place at an hour, in the units of the reports.
struct Surface {
  int direction;  // degrees true, 0 when calm
  int speedKt;
  int gustKt;  // 0 without gusts
  int visibilityM;
  int lowBaseFt;  // above the ground
  int lowOktas;   // 0 to 8
  int highBaseFt;
  int highOktas;
  int temperatureC;
  int dewPointC;
  int qnh;
  int showers;  // 0 none, 1 showers, 2 thunderstorms
};

Surface surfaceAt(const Location& location, TimePoint time);

// Degrees Celsius of the free air; the level in hundreds of feet.
double airTemperature(double latitude, int level, TimePoint time);

// Latitude of the axis of the jet stream, which waves with the travelling systems.
double jetLatitude(double longitude, TimePoint time);

// Level of the 0 degrees surface.
int freezingLevel(double latitude, TimePoint time);

}  // namespace sim
