#pragma once

#include <map>
#include <string>
#include <string_view>

#include "simulator/charts/chart.h"

namespace sim {

// Draws charts and keeps the latest, since drawing costs far more than sending.
class ChartStore {
 public:
  // The chart's file in Base64, a CR LF after every 76 characters and at the end.
  const std::string& base64(const ChartRequest& request, Format format);

 private:
  std::map<std::string, std::string> drawn_;
};

std::string base64Lines(std::string_view bytes);

}  // namespace sim
