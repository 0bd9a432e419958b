#include "simulator/data/general_met.h"

#include <string>

#include "simulator/data/text.h"
#include "simulator/registry.h"

namespace sim::handlers {
namespace {

void directory(const Call&, Element& answer) {
  for (const GeneralMetMessage& message : generalMetMessages()) {
    Element& entry = answer.add("msg");
    entry.add("name", std::string(message.name));
    entry.add("type", std::string(message.type));
  }
}

void message(const Call& call, Element& answer) {
  const std::string name = call.request.childText("name");
  const std::string type = call.request.childText("type");
  const GeneralMetMessage* found = findGeneralMet(trimmedUpperCase(name), trimmedUpperCase(type));
  if (found == nullptr) {
    throw Refusal("Unknown message: " + name + " (" + type + ")");
  }
  answer.add("content", std::string(found->text));
}

}  // namespace

void general_met(Registry& registry, State&) {
  registry.add("general-met-dir-rqs", Endpoint::briefing, directory);
  registry.add("general-met-brief-rqs", Endpoint::briefing, message);
}

}  // namespace sim::handlers
