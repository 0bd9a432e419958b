#include "simulator/product.h"

namespace sim {

void addProduct(Element& answer, ChartStore& charts, const std::string& type,
                const ChartRequest& chart) {
  Element& product = answer.add("product");
  product.attribute("type", type);
  product.add("content", charts.base64(chart, Format::png));
}

void addBriefingCharts(Element& answer, ChartStore& charts, const BriefingCharts& wanted) {
  const auto add = [&](const char* type, const char* title, const char* kind) {
    addProduct(answer, charts, type, {title, kind, false, wanted.from});
  };
  if (wanted.surface) {
    add("PNG", "MEAN SEA LEVEL PRESSURE", "MSLP");
    // NAIPS reports some of its PNG files as GIF.
    add("GIF", wanted.high ? "SIGNIFICANT WEATHER ABOVE FL250" : "SIGNIFICANT WEATHER BELOW FL250",
        "SIGWX");
  }
  if (wanted.midLevel) {
    add("PNG", "SIGNIFICANT WEATHER FL100 TO FL250", "SIGWX");
    add("PNG", wanted.high ? "WIND AND TEMPERATURE FL340" : "WIND AND TEMPERATURE FL100", "GPWT");
  }
}

}  // namespace sim
