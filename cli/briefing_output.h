#pragma once

#include "cli/command.h"
#include "cli/json.h"
#include "cli/session.h"

#include <ktpnaips/briefing/briefing_response.h>

#include <memory>
#include <utility>

namespace cli {

void briefingFields(const ktpnaips::BriefingResponse& briefing, JsonObject& json);

/// The text, then the paths of its files.
void printBriefing(const ktpnaips::BriefingResponse& briefing);

/// Runs a request that is answered by a briefing.
template <class Request>
Run briefing(std::shared_ptr<Request> request) {
  return [request = std::move(request)](Session& session) {
    session.submit(*request, briefingFields, printBriefing);
  };
}

}  // namespace cli
