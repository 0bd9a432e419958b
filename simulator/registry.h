#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/account.h"
#include "simulator/element.h"
#include "simulator/state.h"
#include "simulator/xml.h"

namespace sim {

enum class Endpoint { reference, account, briefing, flightNotification, met };

// "/briefing-service".
std::string_view pathOf(Endpoint endpoint);

// What a handler throws when it will not do what was asked: answered with the status FAILURE and
// the text as info.
struct Refusal : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A request that fits the schema, of an account whose password was right.
struct Call {
  XmlView request;
  Account& account;
  std::chrono::sys_seconds now;
};

// Fills the answer element; its status is written by the caller.
using Handler = std::function<void(const Call& call, Element& answer)>;

struct Operation {
  std::string requestElement;  // "authenticate-rqs", answered by "authenticate-rsp"
  Endpoint endpoint;
  Handler handle;
};

class Registry {
 public:
  void add(std::string requestElement, Endpoint endpoint, Handler handle);

  const Operation* find(std::string_view requestElement) const;
  std::vector<std::string> requestElements(Endpoint endpoint) const;

 private:
  std::map<std::string, Operation, std::less<>> operations_;
};

// Adds the operations of every file in handlers/. The build writes it: for each
// handlers/SUBJECT.cpp it calls `void sim::handlers::SUBJECT(Registry&, State&)`.
void addHandlers(Registry& registry, State& state);

}  // namespace sim
