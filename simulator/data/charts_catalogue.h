#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulator/charts/chart.h"
#include "simulator/data/time.h"

namespace sim {

struct ChartEntry {
  std::string key;   // "80001"
  std::string name;  // title of the chart
  std::string type;  // "MSLP", "SIGWX" or "GPWT"
  TimePoint storeTime;
  TimePoint valid;
  bool low;  // which resolutions there are
  bool high;
  Format format;
};

// The charts on offer at a time; keys stay the same from day to day.
std::vector<ChartEntry> chartCatalogue(TimePoint now);

// Draws a chart of the catalogue.
std::string drawEntry(const ChartEntry& entry, bool high);

}  // namespace sim
