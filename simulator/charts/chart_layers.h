#pragma once

#include "simulator/charts/canvas.h"
#include "simulator/charts/projection.h"

namespace sim {

// What each kind of chart draws on the map, and its legend in the strip below.
void drawMslp(Canvas& canvas, const Projection& map, const ChartRequest& request);
void drawMslpLegend(Canvas& canvas);
void drawSigwx(Canvas& canvas, const Projection& map, const ChartRequest& request);
void drawSigwxLegend(Canvas& canvas, const ChartRequest& request);
void drawGpwt(Canvas& canvas, const Projection& map, const ChartRequest& request);
void drawGpwtLegend(Canvas& canvas);

// The middle of the legend's strip.
inline constexpr double legendY = 579;

}  // namespace sim
