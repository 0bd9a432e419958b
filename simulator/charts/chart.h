#pragma once

#include <chrono>
#include <string>

namespace sim {

enum class Format { png, pdf };

struct ChartRequest {
  std::string title;
  std::string kind;  // "MSLP", "SIGWX" or "GPWT"; anything else is drawn as MSLP
  bool high;         // 1600 x 1200 instead of 800 x 600 pixels
  std::chrono::sys_seconds valid;
};

// Returns the file's bytes; equal requests give equal bytes.
std::string drawChart(const ChartRequest& request, Format format);

}  // namespace sim
