#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sim {

struct Group {
  std::string name;
  bool manager = false;
};

struct Account {
  std::string user;  // compared without regard to case
  std::string password;
  std::string name;
  std::string motd;
  std::string email;
  bool scheduling = false;
  std::string avfaxId;
  std::vector<Group> groups;
};

// The group's name is compared without regard to case.
bool isMember(const Account& account, std::string_view group);

// The account that every service has: user DEMO, password demo-pilot.
Account demoAccount();

// From "USER:PASSWORD", the rest filled in; throws std::invalid_argument when it is not of that
// form.
Account accountFromText(std::string_view text);

class AccountStore {
 public:
  // Replaces an account of the same user.
  void add(Account account);

  // nullptr when the user is unknown or the password wrong.
  Account* find(std::string_view user, std::string_view password);

 private:
  std::vector<Account> accounts_;
};

}  // namespace sim
