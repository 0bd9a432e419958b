#pragma once

#include <ktpnaips/briefing/charts.h>

#include <string>

namespace cli {

/// A file name for a product of a chart: its key, resolution and type, as "GPWT-HI.png".
std::string chartFileName(const ktpnaips::ChartDescriptor* chart, const ktpnaips::Product& product);

}  // namespace cli
