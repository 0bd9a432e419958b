#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "simulator/data/time.h"
#include "simulator/place.h"
#include "simulator/registry.h"

namespace sim {

// What a strict service will not have; each throws Refusal.
void refuseWithoutStages(std::size_t stages);
void refuseWithoutAircraft(std::string_view aircraft);  // none, or the placeholder NOSEND
void refuseUnknown(const Place& place);
void refuseUnknownAerodrome(std::string_view code);
void refusePastDeparture(TimePoint etd, TimePoint now);

// The group that the request is made for, empty for none. A strict service refuses one that the
// account is not in.
std::string requestedGroup(const Call& call, const State& state);

}  // namespace sim
