#include "cli/briefing_output.h"

#include "cli/text_output.h"

namespace cli {

void briefingFields(const ktpnaips::BriefingResponse& briefing, Json& json) {
  json["Content"] = jsonText(briefing.Content());
  json["Product"] = jsonText(briefing.Product());
  setItems(json, briefing, [](const auto& item) {
    return Json{{"Product", jsonText(item->Product())},
                {"File", jsonText(item->File())},
                {"ProductType", jsonText(item->ProductType())}};
  });
}

void printBriefing(const ktpnaips::BriefingResponse& briefing) {
  printText(briefing.Content());
  if (briefing.Images().empty()) return;
  printLine();
  printLine("Files:");
  for (const auto& item : briefing) {
    printLine("  " + (item->File().empty() ? "(no content)" : plain(item->File())));
  }
}

}  // namespace cli
