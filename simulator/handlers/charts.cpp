#include <algorithm>
#include <string>
#include <vector>

#include "simulator/chart_store.h"
#include "simulator/data/charts_catalogue.h"
#include "simulator/data/text.h"
#include "simulator/registry.h"

namespace sim::handlers {
namespace {

std::vector<std::string> resolutionsOf(const ChartEntry& chart) {
  std::vector<std::string> names;
  if (chart.low) {
    names.emplace_back("LO");
  }
  if (chart.high) {
    names.emplace_back("HI");
  }
  return names;
}

void describe(Element& element, const ChartEntry& chart) {
  element.attribute("key", chart.key);
  element.add("name", chart.name);
  element.add("store-time", isoDateTime(chart.storeTime));
  element.add("type", chart.type);
}

void chartDirectory(const Call& call, Element& answer) {
  for (const ChartEntry& chart : chartCatalogue(call.now)) {
    Element& entry = answer.add("chart");
    describe(entry, chart);
    for (const std::string& resolution : resolutionsOf(chart)) {
      entry.add("variant", resolution);
    }
  }
}

ChartEntry requestedChart(const Call& call) {
  const std::string key = call.request.childText("key");
  const std::vector<ChartEntry> catalogue = chartCatalogue(call.now);
  const auto found = std::ranges::find(catalogue, trimmedUpperCase(key), &ChartEntry::key);
  if (found == catalogue.end()) {
    throw Refusal("Unknown chart: " + key);
  }
  return *found;
}

// The one that was asked for, or all that there are.
std::vector<std::string> requestedResolutions(const Call& call, const ChartEntry& chart) {
  const std::string variant = trimmedUpperCase(call.request.childText("variant"));
  std::vector<std::string> names = resolutionsOf(chart);
  if (variant.empty()) {
    return names;
  }
  if (std::ranges::find(names, variant) == names.end()) {
    throw Refusal("Chart " + chart.key + " is not held in the resolution " + variant);
  }
  return {variant};
}

void getChart(const Call& call, Element& answer, ChartStore& charts) {
  const ChartEntry chart = requestedChart(call);
  const std::vector<std::string> wanted = requestedResolutions(call, chart);
  Element& description = answer.add("desc");
  describe(description, chart);
  for (const std::string& resolution : resolutionsOf(chart)) {
    description.add("res").add("product-res", resolution);
  }
  for (const std::string& resolution : wanted) {
    Element& product = answer.add("content");
    product.attribute("type", chart.format == Format::pdf ? "PDF" : "PNG");
    product.attribute("res", resolution);
    product.add("content", charts.base64({chart.name, chart.type, resolution == "HI", chart.valid},
                                         chart.format));
  }
}

}  // namespace

void charts(Registry& registry, State& state) {
  registry.add("chart-dir-rqs", Endpoint::met, chartDirectory);
  registry.add("get-chart-rqs", Endpoint::met, [&state](const Call& call, Element& answer) {
    getChart(call, answer, state.charts);
  });
}

}  // namespace sim::handlers
