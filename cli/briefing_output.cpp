#include "cli/briefing_output.h"

#include "cli/property_output.h"
#include "cli/text_output.h"

namespace cli {

using ktpnaips::BriefItem;

namespace {

constexpr Shown<BriefItem> item[] = {{"Product", "", valueOf<&BriefItem::Product>},
                                     {"File", "", valueOf<&BriefItem::File>},
                                     {"ProductType", "", valueOf<&BriefItem::ProductType>}};

}  // namespace

void briefingFields(const ktpnaips::BriefingResponse& briefing, JsonObject& json) {
  json.set("Content", jsonText(briefing.Content()));
  json.set("Product", jsonText(briefing.Product()));
  setObjects(json, briefing, item);
}

void printBriefing(const ktpnaips::BriefingResponse& briefing) {
  printText(briefing.Content());
  if (briefing.Images().empty()) return;
  printLine();
  printLine("Files:");
  for (const auto& each : briefing) {
    printFile(each->File());
  }
}

}  // namespace cli
