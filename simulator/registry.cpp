#include "simulator/registry.h"

#include <utility>

namespace sim {

std::string_view pathOf(Endpoint endpoint) {
  switch (endpoint) {
    case Endpoint::reference:
      return "/reference-service";
    case Endpoint::account:
      return "/account-service";
    case Endpoint::briefing:
      return "/briefing-service";
    case Endpoint::flightNotification:
      return "/flight-notification-service";
    case Endpoint::met:
      return "/met-service";
  }
  return {};
}

void Registry::add(std::string requestElement, Endpoint endpoint, Handler handle) {
  Operation operation{requestElement, endpoint, std::move(handle)};
  operations_.emplace(std::move(requestElement), std::move(operation));
}

const Operation* Registry::find(std::string_view requestElement) const {
  const auto found = operations_.find(requestElement);
  return found == operations_.end() ? nullptr : &found->second;
}

std::vector<std::string> Registry::requestElements(Endpoint endpoint) const {
  std::vector<std::string> result;
  for (const auto& [name, operation] : operations_) {
    if (operation.endpoint == endpoint) {
      result.push_back(name);
    }
  }
  return result;
}

}  // namespace sim
