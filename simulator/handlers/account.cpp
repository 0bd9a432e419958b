#include "simulator/registry.h"

namespace sim::handlers {
namespace {

void authenticate(const Call& call, Element& answer) {
  answer.add("name", call.account.name);
  answer.add("motd", call.account.motd);
  answer.add("email", call.account.email);
  answer.add("scheduling", call.account.scheduling ? "true" : "false");
  answer.add("avfax-id", call.account.avfaxId);
}

}  // namespace

void account(Registry& registry, State&) {
  registry.add("authenticate-rqs", Endpoint::account, authenticate);
}

}  // namespace sim::handlers
