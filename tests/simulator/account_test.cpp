#include <gmock/gmock.h>

#include "tests/simulator/requests.h"
#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr std::string_view path = "/naips/account-service";

class Authentication : public ServiceTest {
 protected:
  std::string authenticate(std::string_view attributes, std::string_view children = "") {
    std::string text = "<ndd:authenticate-rqs ";
    text.append(attributes).append(">").append(children).append("</ndd:authenticate-rqs>");
    return answer(path, text);
  }
};

TEST_F(Authentication, TellsWhatIsKnownOfTheDocumentedAccount) {
  const std::string text = answer(path, request("authenticate-rqs", ""));
  EXPECT_THAT(text, HasSubstr("<naips:authenticate-rsp xmlns:naips=\"http://naips.example/naips/"
                              "xsd\" status=\"SUCCESS\"><naips:name>Dana Demo</naips:name>"
                              "<naips:motd>This is the simulated service. Its weather is invented: "
                              "do not fly by it.</naips:motd>"
                              "<naips:email>demo@pilot.example</naips:email>"
                              "<naips:scheduling>true</naips:scheduling>"
                              "<naips:avfax-id>4711</naips:avfax-id></naips:authenticate-rsp>"));
}

TEST_F(Authentication, TakesTheUserInAnyCase) {
  EXPECT_THAT(authenticate("source='x' requestor='demo' password='demo-pilot'"),
              HasSubstr("status=\"SUCCESS\""));
}

TEST_F(Authentication, RefusesAWrongPasswordWithAnInfo) {
  EXPECT_THAT(authenticate("source='x' requestor='DEMO' password='Demo-pilot'"),
              HasSubstr(" status=\"FAILURE\"><naips:info>Invalid user name or password"
                        "</naips:info></naips:authenticate-rsp>"));
}

TEST_F(Authentication, RefusesAnUnknownUserLikeAWrongPassword) {
  EXPECT_THAT(authenticate("source='x' requestor='NOBODY' password='demo-pilot'"),
              HasSubstr("<naips:info>Invalid user name or password</naips:info>"));
}

TEST_F(Authentication, KnowsTheAccountsItWasStartedWith) {
  options.accounts.push_back(sim::accountFromText("pilot1:p:w&<"));
  const std::string text = authenticate("source='x' requestor='PILOT1' password='p:w&amp;&lt;'");
  EXPECT_THAT(text, HasSubstr("<naips:name>Pilot PILOT1</naips:name>"));
  EXPECT_THAT(text, HasSubstr("<naips:scheduling>false</naips:scheduling>"));
}

TEST_F(Authentication, KeepsTheDocumentedAccountBesideOthers) {
  options.accounts.push_back(sim::accountFromText("pilot1:pw"));
  EXPECT_THAT(answer(path, request("authenticate-rqs", "")), HasSubstr("SUCCESS"));
}

TEST_F(Authentication, FaultsWithoutAnyOfItsThreeAttributes) {
  EXPECT_THAT(authenticate("source='x' requestor='DEMO'"),
              HasSubstr("line 1: Element 'authenticate-rqs': The attribute 'password' is required "
                        "but missing."));
  EXPECT_THAT(authenticate("source='x' password='p'"), HasSubstr("The attribute 'requestor' is"));
  EXPECT_THAT(authenticate("requestor='x' password='p'"), HasSubstr("The attribute 'source' is"));
}

TEST_F(Authentication, FaultsOnAChildElementOrAnUnknownAttribute) {
  EXPECT_THAT(authenticate("source='x' requestor='DEMO' password='p'", "<ndd:name/>"),
              HasSubstr("Element content is not allowed"));
  EXPECT_THAT(authenticate("source='x' requestor='DEMO' password='p' color='red'"),
              HasSubstr("The attribute 'color' is not allowed."));
}

class Password : public ServiceTest {
 protected:
  std::string change(std::string_view password, std::string_view email) {
    return answer(path, request("change-password-rqs",
                                element("new-password", password) + element("email", email)));
  }
  std::string login(std::string_view password) {
    std::string text = "<ndd:authenticate-rqs source='x' requestor='DEMO' password='";
    return answer(path, text.append(password).append("'/>"));
  }
};

TEST_F(Password, IsTheNewOneOnceItWasChanged) {
  EXPECT_THAT(change("next one", "new@pilot.example"), HasSubstr("<naips:change-password-rsp"));
  EXPECT_THAT(login("demo-pilot"), HasSubstr("status=\"FAILURE\""));
  const std::string text = login("next one");
  EXPECT_THAT(text, HasSubstr("status=\"SUCCESS\""));
  EXPECT_THAT(text, HasSubstr("<naips:email>new@pilot.example</naips:email>"));
}

TEST_F(Password, IsChangedWithoutTheAddressWhenThatIsEmpty) {
  EXPECT_THAT(change("next", ""), HasSubstr("status=\"SUCCESS\""));
  EXPECT_THAT(login("next"), HasSubstr("<naips:email>demo@pilot.example</naips:email>"));
}

TEST_F(Password, IsNeverEmpty) {
  EXPECT_THAT(change("", ""), HasSubstr("<naips:info>The new password is empty</naips:info>"));
  EXPECT_THAT(login("demo-pilot"), HasSubstr("status=\"SUCCESS\""));
}

class GroupAffiliation : public ServiceTest {};

TEST_F(GroupAffiliation, TellsTheGroupsAndWhetherTheyAreManaged) {
  EXPECT_THAT(answer(path, request("get-group-affiliation-rqs", "")),
              HasSubstr("<naips:group manager=\"true\"><naips:group-name>CLUB</naips:group-name>"
                        "</naips:group><naips:group manager=\"false\"><naips:group-name>RESCUE"
                        "</naips:group-name></naips:group></naips:get-group-affiliation-rsp>"));
}

TEST_F(GroupAffiliation, FaultsOnAnyContent) {
  EXPECT_THAT(answer(path, request("get-group-affiliation-rqs", "<ndd:group/>")),
              HasSubstr("Element content is not allowed"));
}

TEST(AccountText, IsUserAndPasswordAroundTheFirstColon) {
  const sim::Account account = sim::accountFromText("pilot1:a:b");
  EXPECT_EQ(account.user, "PILOT1");
  EXPECT_EQ(account.password, "a:b");
  EXPECT_THROW(sim::accountFromText("pilot1"), std::invalid_argument);
  EXPECT_THROW(sim::accountFromText(":pw"), std::invalid_argument);
}

}  // namespace
}  // namespace simtest
