#include "simulator/product.h"

namespace sim {

void addProduct(Element& answer, ChartStore& charts, const std::string& type,
                const ChartRequest& chart) {
  Element& product = answer.add("product");
  product.attribute("type", type);
  product.add("content", charts.base64(chart, Format::png));
}

}  // namespace sim
