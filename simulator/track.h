#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulator/data/geodesy.h"
#include "simulator/data/time.h"
#include "simulator/data/weather.h"
#include "simulator/place.h"

namespace sim {

// A place of a flight and when it is passed.
struct Fix {
  std::string name;
  GeoPoint position;
  TimePoint time;
};

// Great circles between the places whose position is known, at a true airspeed; long ones get
// fixes in between.
std::vector<Fix> track(const std::vector<Place>& places, TimePoint etd, double speedKt);

// Knots from "N0450", "K0830" or "M082"; a light aircraft's for anything else.
double speedInKnots(std::string_view trueAirspeed);

// Hundreds of feet from "F350", "FL350" or "A085"; 0 when there is none.
int flightLevel(std::string_view level);

// "25035 M42": direction, speed, temperature.
std::string windText(const Wind& wind);

}  // namespace sim
