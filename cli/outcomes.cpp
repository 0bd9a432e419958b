#include "cli/outcomes.h"

namespace cli {

void Outcomes::add(const Json& outcome, const JsonMembers& fields) {
  written_.push_back(writtenJson([&](JsonObject& json) {
    json.setAll(outcome);
    if (fields) fields(json);
  }));
  if (!outcome.at("Error").get<bool>()) return;
  if (failed_ == 0) firstFailed_ = outcome;
  ++failed_;
}

}  // namespace cli
