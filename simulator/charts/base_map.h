#pragma once

#include "simulator/charts/canvas.h"
#include "simulator/charts/projection.h"

namespace sim {

Projection regionProjection();

void drawLandAndSea(Canvas& canvas, const Projection& map);
void drawGraticule(Canvas& canvas, const Projection& map);
void drawCities(Canvas& canvas, const Projection& map);

// The frame, the title bar and the strip for the legend; outside the map's clip.
void drawFurniture(Canvas& canvas, const Projection& map, const ChartRequest& request);

void clipToMap(Canvas& canvas, const Projection& map);

}  // namespace sim
