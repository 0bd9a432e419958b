#pragma once

#include <chrono>

#include "simulator/registry.h"

namespace sim {

struct BriefingPeriod {
  std::chrono::sys_seconds from;
  std::chrono::sys_seconds till;
};

// From the request's "period" or, counted from now, its "duration"; a day from now when it has
// neither. Throws Refusal when the period ends before it begins.
BriefingPeriod briefingPeriod(const Call& call);

// The request's date and time text, which fits the schema.
std::chrono::sys_seconds dateTimeOf(const std::string& text);

}  // namespace sim
