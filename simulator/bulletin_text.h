#pragma once

#include <string>
#include <vector>

#include "simulator/bulletin.h"
#include "simulator/data/notams.h"
#include "simulator/registry.h"

namespace sim {

// The NOTAMs of the places of a bulletin in its period, each once.
std::vector<const Notam*> notamsOf(const Bulletin& bulletin);

// The bulletin as a pilot reads it; stages that are not included are left out.
std::string bulletinText(const Bulletin& bulletin, const Call& call,
                         const std::vector<bool>& included);

}  // namespace sim
