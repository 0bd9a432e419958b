#include <ktpnaips/briefing/base64.h>
#include <ktpnaips/briefing/charts.h>
#include <ktpnaips/briefing/temp_files.h>
#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/xml_building.h>

#include <algorithm>

namespace ktpnaips {

using modBrevank::addElement;

namespace {

constexpr Operation chartDirectory{service::met, L"chart-dir-rqs", L"chart-dir",
                                   inClass(L"submit", L"ChartDir")};

constexpr Operation getChart{service::met, L"get-chart-rqs", L"get-chart",
                             inClass(L"submit", L"GetChartRequest")};

void readDescription(const xml::Node& from, ChartDescriptor& chart) {
  chart.Key(neededAttribute(from, L"key"));
  readText(from, "naips:name", chart.Name);
  readDateTime(from, "naips:store-time", chart.StoreTime);
  readText(from, "naips:type", chart.ProductType);
}

/// Whether the description lists that resolution.
bool comesIn(const xml::Node& description, std::wstring_view resolution) {
  const auto listed = description.selectAll("naips:res/naips:product-res");
  return std::ranges::any_of(listed, [&](const auto& each) { return each.text() == resolution; });
}

void readProduct(const xml::Node& from, Product& product) {
  product.ProductType(neededAttribute(from, L"type"));
  if (const auto resolution = from.attribute(L"res")) product.Resolution(*resolution);
  std::string bytes;
  from.select("naips:content").readText([&](auto base64) { bytes = Enc64::MyDecode(base64); });
  product.FilePath(sharedTempFiles().CreateTempFile(L"KTP"));
  sharedTempFiles().writeTemporary(product.FilePath(), bytes);
}

}  // namespace

bool rule::ChartResolution::accepts(std::wstring_view value) {
  const std::wstring resolution = Utils::cleanString(value);
  return resolution.empty() || resolution == L"LO" || resolution == L"HI";
}

void ChartDirectoryRsp::extractData() {
  trapped(inClass(L"extractData", L"ChartDirRsp"), [&] {
    for (const xml::Node& node : Payload().selectAll("naips:chart")) {
      const auto& chart = append(std::make_shared<ChartDescriptor>());
      readDescription(node, *chart);
      const bool hasVariant = static_cast<bool>(node.select("naips:variant"));
      chart->LowRes(hasVariant);
      chart->HighRes(hasVariant);
    }
  });
}

ChartDirectoryRqs::ChartDirectoryRqs() : Request(chartDirectory) {}

GetChartRsp::GetChartRsp() {
  sharedTempFiles();
}

void GetChartRsp::loaded() {
  if (Payload()) extractData();
}

void GetChartRsp::extractData() {
  trapped(inClass(L"extractData", L"GetChartRsp"), [&] {
    const auto chart = std::make_shared<ktpnaips::ChartDescriptor>();
    ChartDescriptor.value = chart;
    const xml::Node payload = Payload();
    const xml::Node description = payload.select("naips:desc");
    readDescription(description, *chart);
    chart->LowRes(comesIn(description, L"LO"));
    chart->HighRes(comesIn(description, L"HI"));
    for (const xml::Node& content : payload.selectAll("//naips:content")) {
      if (!content.select("naips:content")) continue;
      const auto& product = append(std::make_shared<Product>());
      readProduct(content, *product);
    }
  });
}

GetChartRqs::GetChartRqs() : Request(getChart) {}

void GetChartRqs::appendContent(const xml::Node& request, std::wstring_view namespaceUri) const {
  addElement(request, L"key", namespaceUri, Key());
  if (!Resolution().empty()) addElement(request, L"variant", namespaceUri, Resolution());
}

}  // namespace ktpnaips
