#include "simulator/data/notams.h"

#include <string>
#include <vector>

#include "simulator/registry.h"

namespace sim::handlers {
namespace {

void fullText(const Call& call, Element& answer) {
  const std::vector<std::string> keys = call.request.childTexts("notamKey");
  if (keys.empty()) {
    throw Refusal("No NOTAM was asked for");
  }
  std::string text;
  for (const std::string& key : keys) {
    const Notam* notam = findNotam(key);
    if (notam == nullptr) {
      throw Refusal("Unknown NOTAM: " + key);
    }
    text.append(text.empty() ? "" : "\n").append(notam->text);
  }
  answer.add("content", text);
}

}  // namespace

void notams(Registry& registry, State&) {
  registry.add("retrieve-full-text-notam-rqs", Endpoint::briefing, fullText);
}

}  // namespace sim::handlers
