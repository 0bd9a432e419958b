#include "simulator/account.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "simulator/data/text.h"

namespace sim {

bool isMember(const Account& account, std::string_view group) {
  return std::ranges::any_of(account.groups, [&](const Group& member) {
    return upperCase(member.name) == upperCase(group);
  });
}

Account demoAccount() {
  Account account;
  account.user = "DEMO";
  account.password = "demo-pilot";
  account.name = "Dana Demo";
  account.motd = "This is the simulated service. Its weather is invented: do not fly by it.";
  account.email = "demo@pilot.example";
  account.scheduling = true;
  account.avfaxId = "4711";
  account.groups = {{"CLUB", true}, {"RESCUE", false}};
  return account;
}

Account accountFromText(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon == 0) {
    throw std::invalid_argument("An account is given as USER:PASSWORD");
  }
  Account account;
  account.user = upperCase(text.substr(0, colon));
  account.password = text.substr(colon + 1);
  account.name = "Pilot " + account.user;
  account.email = "pilot@mail.example";
  account.avfaxId = "1000";
  account.groups = {{"CLUB", false}};
  return account;
}

void AccountStore::add(Account account) {
  account.user = upperCase(account.user);
  const auto same = std::ranges::find(accounts_, account.user, &Account::user);
  if (same == accounts_.end()) {
    accounts_.push_back(std::move(account));
  } else {
    *same = std::move(account);
  }
}

Account* AccountStore::find(std::string_view user, std::string_view password) {
  const auto found = std::ranges::find(accounts_, upperCase(user), &Account::user);
  return found != accounts_.end() && found->password == password ? &*found : nullptr;
}

}  // namespace sim
