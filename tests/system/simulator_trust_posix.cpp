#include "tests/system/simulator.h"

namespace simulator {

void trustAuthority() {}  // Deployment::caFile is enough

}  // namespace simulator
