#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/password.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

using namespace ktpnaips;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

class AccountExchange : public simulator::Exchange {};

INSTANTIATE_TEST_SUITE_P(Schemes, AccountExchange, testing::Bool(), simulator::schemeName);

TEST_P(AccountExchange, ListsTheGroupsOfTheAccount) {
  const auto groups = GetGroupAffiliationRqs().submit();
  ASSERT_TRUE(succeeded(groups));
  EXPECT_EQ(lastRequest(), requestOf("get-group-affiliation-rqs", ""));
  ASSERT_EQ(groups->Count(), 2);
  EXPECT_EQ(groups->Item(1)->Name(), L"CLUB");
  EXPECT_TRUE(groups->Item(1)->Manager());
  EXPECT_EQ(groups->Item(2)->Name(), L"RESCUE");
  EXPECT_FALSE(groups->Item(2)->Manager());
  EXPECT_EQ(groups->Item(0), nullptr);
  EXPECT_EQ(groups->Item(3), nullptr);
}

TEST_P(AccountExchange, IsRefusedTheGroupsWithAWrongPassword) {
  NAIPSConfig().Password(L"wrong");
  const auto groups = GetGroupAffiliationRqs().submit();
  EXPECT_TRUE(refused(groups, L"Invalid user name or password"));
  EXPECT_EQ(groups->Count(), 0);
}

TEST_P(AccountExchange, IsRefusedAnEmptyPasswordAndKeepsTheOldOne) {
  const auto changed = ChangePasswordRqs().submit();
  EXPECT_EQ(lastRequest(), requestOf("change-password-rqs", "<new-password/><email/>"));
  EXPECT_TRUE(refused(changed, L"The new password is empty"));
  EXPECT_TRUE(succeeded(AuthenticateRqs().submit()));
}

std::shared_ptr<ChangePasswordRsp> changePassword(std::wstring_view to, std::wstring_view email) {
  ChangePasswordRqs request;
  request.NewPassword(to);
  request.Email(email);
  return request.submit();
}

constexpr std::wstring_view demoEmail = L"demo@pilot.example";
constexpr std::wstring_view otherAddress = L"Dana.Demo@club.example";

/// Another password of the account, until the end of the scope.
class ChangedPassword {
 public:
  ChangedPassword() { NAIPSConfig().Password(value); }
  ~ChangedPassword() {
    NAIPSConfig().Password(value);
    changePassword(simulator::password, demoEmail);
    NAIPSConfig().Password(simulator::password);
  }
  ChangedPassword(const ChangedPassword&) = delete;
  ChangedPassword& operator=(const ChangedPassword&) = delete;

  static constexpr std::wstring_view value = L" N\u00E9w <pilot> & \"Co\" ";
};

TEST_P(AccountExchange, ChangesThePasswordLogsInWithItAndChangesItBack) {
  {
    const auto changed = changePassword(ChangedPassword::value, otherAddress);
    EXPECT_EQ(lastRequest(),
              requestOf("change-password-rqs",
                        "<new-password> N\xC3\xA9w &lt;pilot&gt; &amp; \"Co\" </new-password>"
                        "<email>Dana.Demo@club.example</email>"));
    ASSERT_TRUE(succeeded(changed));
    EXPECT_TRUE(refused(AuthenticateRqs().submit(), L"Invalid user name or password"))
        << "the configuration keeps the old password";

    const ChangedPassword password;
    const auto holder = AuthenticateRqs().submit();
    ASSERT_TRUE(succeeded(holder));
    EXPECT_EQ(holder->Name(), L"Dana Demo");
    EXPECT_EQ(holder->Email(), otherAddress);
  }
  const auto holder = AuthenticateRqs().submit();
  ASSERT_TRUE(succeeded(holder));
  EXPECT_EQ(holder->Email(), demoEmail);
}

}  // namespace
