#include "cli/simulation.h"

#include "cli/usage_error.h"

#include "simulator/account.h"
#include "simulator/service.h"

#include <fmt/format.h>

#include <exception>
#include <utility>

namespace cli {

struct Simulation::Running {
  sim::Service service;
};

namespace {

sim::Options optionsFor(const std::string& user, const std::string& password,
                        const std::string& schemaNamespace) {
  sim::Account account = sim::demoAccount();
  account.user = user;
  account.password = password;
  sim::Options options;
  options.accounts.push_back(std::move(account));
  options.schemaNamespace = schemaNamespace;
  return options;
}

}  // namespace

Simulation::Simulation(const std::string& user, const std::string& password,
                       const std::string& schemaNamespace) {
  try {
    running_.reset(new Running{sim::Service(optionsFor(user, password, schemaNamespace))});
  } catch (const std::exception& failure) {
    throw UsageError(fmt::format("the simulated service cannot start: {}", failure.what()));
  }
}

Simulation::~Simulation() = default;

std::string Simulation::address() const {
  return running_->service.address();
}

std::string Simulation::caFile() const {
  return running_->service.caFile().string();
}

std::string Simulation::documentedUser() {
  return sim::demoAccount().user;
}

std::string Simulation::documentedPassword() {
  return sim::demoAccount().password;
}

}  // namespace cli
