#include <string>

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

void changePassword(const Call& call, Element&) {
  const std::string password = call.request.childText("new-password");
  if (password.empty()) {
    throw Refusal("The new password is empty");
  }
  call.account.password = password;
  if (const std::string email = call.request.childText("email"); !email.empty()) {
    call.account.email = email;
  }
}

void groupAffiliation(const Call& call, Element& answer) {
  for (const Group& group : call.account.groups) {
    Element& entry = answer.add("group");
    entry.attribute("manager", group.manager ? "true" : "false");
    entry.add("group-name", group.name);
  }
}

}  // namespace

void account(Registry& registry, State&) {
  registry.add("authenticate-rqs", Endpoint::account, authenticate);
  registry.add("change-password-rqs", Endpoint::account, changePassword);
  registry.add("get-group-affiliation-rqs", Endpoint::account, groupAffiliation);
}

}  // namespace sim::handlers
