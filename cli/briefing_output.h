#pragma once

#include "cli/json.h"

#include <ktpnaips/briefing/briefing_response.h>

namespace cli {

void briefingFields(const ktpnaips::BriefingResponse& briefing, Json& json);

/// The text, then the paths of its files.
void printBriefing(const ktpnaips::BriefingResponse& briefing);

}  // namespace cli
