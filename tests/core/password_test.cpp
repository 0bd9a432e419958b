#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/password.h>
#include <ktpnaips/core/request_document.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

class PasswordChange : public testing::Test {
 protected:
  ChangePasswordRqs request;

 private:
  test::FreshSettings settings_;
};

TEST_F(PasswordChange, WritesBothElementsEvenWhenEmpty) {
  EXPECT_EQ(request.abstractReq().ElementName(), L"change-password-rqs");
  EXPECT_EQ(request.NewPassword(), L"");
  EXPECT_EQ(request.Email(), L"");
  EXPECT_EQ(requestDocument(request),
            test::requestWith("change-password-rqs", "<ndd:new-password/><ndd:email/>"));
}

TEST_F(PasswordChange, SendsPasswordAndAddressUnchanged) {
  request.Email(L" Jane@Example.com ");
  request.NewPassword(L" New  Secret<&>\u00e9 ");
  EXPECT_EQ(request.Email(), L" Jane@Example.com ");
  EXPECT_EQ(request.NewPassword(), L" New  Secret<&>\u00e9 ");
  EXPECT_EQ(requestDocument(request),
            test::requestWith("change-password-rqs",
                              "<ndd:new-password> New  Secret&lt;&amp;&gt;\xC3\xA9 "
                              "</ndd:new-password><ndd:email> Jane@Example.com </ndd:email>"));
}

TEST_F(PasswordChange, CarriesTheCurrentAccount) {
  NAIPSConfig config;
  config.UserName(L"pilot1");
  config.Password(L"old");
  request.NewPassword(L"new");
  EXPECT_EQ(requestDocument(request),
            test::requestEnvelope("<ndd:change-password-rqs" + test::nddDeclaration() +
                                  " source=\"orvalix\" requestor=\"PILOT1\" password=\"old\">"
                                  "<ndd:new-password>new</ndd:new-password><ndd:email/>"
                                  "</ndd:change-password-rqs>"));
  EXPECT_EQ(config.Password(), L"old");
}

TEST_F(PasswordChange, TracesTheOldAndTheNewPasswordWhenItFailed) {
  NAIPSConfig().Mode(5);
  request.abstractReq().User(L"pilot2");
  request.abstractReq().Password(L"old");
  request.NewPassword(L"new");
  const test::FailureRecorder recorder;
  const auto response = request.submit();
  ASSERT_NE(response, nullptr);
  EXPECT_TRUE(response->Error());
  EXPECT_NE(response->ErrorText().find(L"requestor=\"PILOT2\" password=\"old\""),
            std::wstring::npos);
  EXPECT_NE(response->ErrorText().find(L"new-password>new<"), std::wstring::npos);
}

TEST_F(PasswordChange, ReportsAFailingSubmitUnderAnotherName) {
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"ChangePasswordRequest")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

TEST(PasswordChangeAnswer, TellsSuccessFromFailureAlone) {
  ChangePasswordRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_FALSE(response.Payload());
  EXPECT_FALSE(response.ResponseDoc());
  test::load(response, test::success(""));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"");
  EXPECT_TRUE(response.Payload());
  ChangePasswordRsp failed;
  test::load(failed, test::answer("<n:answer status=\"FAILURE\"><n:info>Too short</n:info>"
                                  "</n:answer>"));
  EXPECT_TRUE(failed.Error());
  EXPECT_EQ(failed.ErrorText(), L"NAIPS Error: FAILURE\r\nInfo: Too short\r\n");
}

}  // namespace
}  // namespace ktpnaips
