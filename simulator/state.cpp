#include "simulator/state.h"

namespace sim {

std::chrono::sys_seconds State::now() const {
  using HalfHours = std::chrono::duration<int, std::ratio<1800>>;
  return fixedNow.value_or(std::chrono::floor<HalfHours>(std::chrono::system_clock::now()));
}

}  // namespace sim
