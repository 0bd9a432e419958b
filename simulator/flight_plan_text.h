#pragma once

#include <string>

#include "simulator/xml.h"

namespace sim {

// A stage of a flight plan as an ICAO message: "(FPL-VHABC-IG ...)".
std::string flightPlanText(const XmlView& stage);

// Item 15 without speed and level, from departure to destination: "YSSY WOL H65 LIZZI YMML".
std::string routeSummary(const XmlView& stage);

// Item 19 of a flight plan, empty without any.
std::string supplementText(const XmlView& supplement);

// "SARTIME 201130 CENSAR YSCB", or "SARTIME TBA" with what else is known.
std::string sartimeText(const XmlView& sartime);

// "0130" from "PT01H30M".
std::string hoursMinutes(const std::string& duration);

}  // namespace sim
