#include "simulator/charts/chart.h"

#include "simulator/charts/base_map.h"
#include "simulator/charts/chart_layers.h"

namespace sim {

std::string drawChart(const ChartRequest& request, Format format) {
  Canvas canvas(format, request.high, request.title, request.valid);
  const Projection map = regionProjection();
  canvas.ink(ink::paper);
  cairo_paint(canvas.pen());

  const bool sigwx = request.kind == "SIGWX";
  const bool gpwt = request.kind == "GPWT";
  cairo_save(canvas.pen());
  clipToMap(canvas, map);
  drawLandAndSea(canvas, map);
  drawGraticule(canvas, map);
  if (sigwx) {
    drawSigwx(canvas, map, request);
  } else if (gpwt) {
    drawGpwt(canvas, map, request);
  } else {
    drawMslp(canvas, map, request);
  }
  cairo_restore(canvas.pen());

  drawFurniture(canvas, map, request);
  if (sigwx) {
    drawSigwxLegend(canvas, request);
  } else if (gpwt) {
    drawGpwtLegend(canvas);
  } else {
    drawMslpLegend(canvas);
  }
  return canvas.finish();
}

}  // namespace sim
