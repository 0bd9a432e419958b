#pragma once

#include <span>
#include <string_view>

#include "simulator/answer.h"

namespace sim {

// What a fault may look at besides the answer that it spoils.
struct FaultContext {
  std::string_view schemaNamespace;
  bool keepAlive;  // what the connection does after a whole answer
};

struct Fault {
  std::string_view name;
  std::string_view summary;
  Delivery (*spoil)(const Answer& answer, const FaultContext& context);
};

std::span<const Fault> faults();

// nullptr when there is none of that name.
const Fault* findFault(std::string_view name);

}  // namespace sim
