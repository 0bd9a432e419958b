#pragma once

#include <chrono>
#include <string>

#include "simulator/chart_store.h"
#include "simulator/element.h"

namespace sim {

// Appends a drawn chart as a "product" of that reported type; the file is a PNG whatever it says.
void addProduct(Element& answer, ChartStore& charts, const std::string& type,
                const ChartRequest& chart);

// The charts that a briefing brings.
struct BriefingCharts {
  bool surface;  // pressure and significant weather
  bool midLevel;
  bool high;
  std::chrono::sys_seconds from;
};
void addBriefingCharts(Element& answer, ChartStore& charts, const BriefingCharts& wanted);

}  // namespace sim
