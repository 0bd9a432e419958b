#pragma once

#include <string>

#include "simulator/chart_store.h"
#include "simulator/element.h"

namespace sim {

// Appends a drawn chart as a "product" of that reported type; the file is a PNG whatever it says.
void addProduct(Element& answer, ChartStore& charts, const std::string& type,
                const ChartRequest& chart);

}  // namespace sim
