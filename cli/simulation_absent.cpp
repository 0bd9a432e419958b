#include "cli/simulation.h"
#include "cli/usage_error.h"

namespace cli {

struct Simulation::Running {};

Simulation::Simulation(const std::string&, const std::string&, const std::string&) {
  throw UsageError(
      "this build has no simulated service: start naips-simulator on a Linux machine and give "
      "--connect-to ADDRESS:PORT");
}

Simulation::~Simulation() = default;

std::string Simulation::address() const {
  return {};
}

std::string Simulation::caFile() const {
  return {};
}

std::string Simulation::documentedUser() {
  return {};
}

std::string Simulation::documentedPassword() {
  return {};
}

}  // namespace cli
