#include <ktpnaips/briefing/base64.h>
#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/briefing/temp_files.h>
#include <ktpnaips/core/loading.h>

namespace ktpnaips {
namespace {

void readProduct(const xml::Node& product, BriefItem& item, FreePaths& paths) {
  if (const auto type = product.attribute(L"type")) {
    item.ProductType(*type == L"GIF" ? std::wstring(L"PNG") : *type);
  }
  const xml::Node content = product.select("naips:content");
  if (!content) return;

  TempFileManager& tempFiles = sharedTempFiles();
  const std::wstring name = L"NAIPS." + item.ProductType();
  item.File(name);
  item.File(tempFiles.GetUniqueFilename(name, paths));
  std::string bytes;
  content.readText([&](auto base64) { bytes = Enc64::MyDecode(base64); });
  item.File(tempFiles.writeProduct(name, item.File(), bytes, paths));
}

}  // namespace

BriefingResponse::BriefingResponse() {
  sharedTempFiles();
}

void BriefingResponse::loaded() {
  Content.value.clear();
  clear();
  ResponseBase::loaded();
}

void BriefingResponse::extractData() {
  const xml::Node payload = Payload();
  readText(payload, "naips:content", Content.value);
  FreePaths paths;
  for (const xml::Node& product : payload.selectAll("naips:product")) {
    const auto& item = append(std::make_shared<BriefItem>());
    readProduct(product, *item, paths);
  }
}

}  // namespace ktpnaips
