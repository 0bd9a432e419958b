#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/request_document.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "tests/support/failing_allocation.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

TEST(AuthenticateRequest, IsOneElementWithTheAccountAndNoChildren) {
  const test::FreshSettings settings;
  NAIPSConfig config;
  config.UserName(L"pilot1");
  config.Password(L"pw");
  EXPECT_EQ(requestDocument(AuthenticateRqs()),
            test::requestEnvelope("<ndd:authenticate-rqs" + test::nddDeclaration() +
                                  " source=\"orvalix\" requestor=\"PILOT1\" password=\"pw\"/>"));
}

TEST(AuthenticateRequest, CarriesWhatTheHostSetsOnItsHeaderPart) {
  const test::FreshSettings settings;
  AuthenticateRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"authenticate-rqs");
  request.abstractReq().User(L"pilot2");
  request.abstractReq().Password(L"pw2");
  request.abstractReq().Scope(L"All");
  request.abstractReq().Source(L"host");
  EXPECT_EQ(requestDocument(request),
            test::requestEnvelope(
                "<ndd:authenticate-rqs" + test::nddDeclaration() +
                " source=\"host\" requestor=\"PILOT2\" password=\"pw2\" scope=\"All\"/>"));
}

TEST(AuthenticateRequest, ReportsAFailingSubmitAndReturnsNoResponse) {
  const AuthenticateRqs request;
  const test::FailureRecorder recorder;
  std::shared_ptr<AuthenticateRsp> response;
  {
    const test::FailingAllocation failure;
    response = request.submit();
  }
  EXPECT_EQ(response, nullptr);
  EXPECT_EQ(
      recorder.reports(),
      test::Reports{
          L"Error 7 (Out of memory) in procedure submit of Class Module AuthenticateRequest"});
}

TEST(AuthenticateResponse, ReadsAsFailedUntilItIsAnswered) {
  const AuthenticateRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_FALSE(response.Payload());
  EXPECT_FALSE(response.ResponseDoc());
  EXPECT_EQ(response.Name(), L"");
  EXPECT_EQ(response.MOTD(), L"");
  EXPECT_EQ(response.Email(), L"");
  EXPECT_FALSE(response.Scheduling());
  EXPECT_EQ(response.AvfaxId(), L"");
}

TEST(AuthenticateResponse, ReadsEveryField) {
  AuthenticateRsp response;
  test::load(response,
             test::success("<n:name>Jane D\xC3\xB6</n:name><n:motd>Fly safely</n:motd>"
                           "<n:avfax-id>0123</n:avfax-id><n:email>jane@example.com</n:email>"
                           "<n:scheduling>true</n:scheduling>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"");
  EXPECT_EQ(response.Name(), L"Jane D\u00f6");
  EXPECT_EQ(response.MOTD(), L"Fly safely");
  EXPECT_EQ(response.AvfaxId(), L"0123");
  EXPECT_EQ(response.Email(), L"jane@example.com");
  EXPECT_TRUE(response.Scheduling());
}

TEST(AuthenticateResponse, KeepsTheDefaultsOfAbsentFields) {
  AuthenticateRsp response;
  test::load(response, test::success("<n:name>Jane</n:name><n:scheduling>true</n:scheduling>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Name(), L"Jane");
  EXPECT_TRUE(response.Scheduling());
  EXPECT_EQ(response.MOTD(), L"");
  EXPECT_EQ(response.Email(), L"");
  EXPECT_EQ(response.AvfaxId(), L"");
}

TEST(AuthenticateResponse, TakesOnlyTheTextsOneAndTrueForScheduling) {
  const auto scheduling = [](const std::string& text) {
    AuthenticateRsp response;
    test::load(response, test::success("<n:scheduling>" + text + "</n:scheduling>"));
    EXPECT_FALSE(response.Error());
    return response.Scheduling();
  };
  EXPECT_TRUE(scheduling("1"));
  EXPECT_TRUE(scheduling("true"));
  for (const char* text : {"0", "false", "TRUE", "True", "yes", "", " true", "1 ", "01", "-1"}) {
    EXPECT_FALSE(scheduling(text)) << text;
  }
}

TEST(AuthenticateResponse, TakesTextWholeAndUnchanged) {
  AuthenticateRsp response;
  test::load(response, test::success("<n:name> Jane \n Doe </n:name>"
                                     "<n:motd><![CDATA[<b>]]> &amp; <i>x</i><!-- c -->y</n:motd>"));
  EXPECT_EQ(response.Name(), L" Jane \n Doe ");
  EXPECT_EQ(response.MOTD(), L"<b> & xy");
}

TEST(AuthenticateResponse, ReadsOnlyChildrenOfTheAnswerElementInTheSchemaNamespace) {
  AuthenticateRsp response;
  test::load(response, test::success("<n:more><n:name>deep</n:name></n:more><name>bare</name>"
                                     "<o:name xmlns:o=\"urn:other\">other</o:name>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Name(), L"");
}

TEST(AuthenticateResponse, TakesTheFirstOfRepeatedFields) {
  AuthenticateRsp response;
  test::load(response, test::success("<n:name>first</n:name><n:name>second</n:name>"));
  EXPECT_EQ(response.Name(), L"first");
}

TEST(AuthenticateResponse, ReadsNothingFromAFailedAnswer) {
  AuthenticateRsp response;
  test::load(
      response,
      test::answer("<n:answer status=\"FAILURE\"><n:name>Jane</n:name>"
                   "<n:scheduling>1</n:scheduling><n:info>Bad password</n:info></n:answer>"));
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"NAIPS Error: FAILURE\r\nInfo: Bad password\r\n");
  EXPECT_EQ(response.Name(), L"");
  EXPECT_FALSE(response.Scheduling());
}

TEST(AuthenticateResponse, IsFilledAgainOverTheOldValuesByASecondAnswer) {
  AuthenticateRsp response;
  test::load(response, test::success("<n:name>Jane</n:name><n:motd>old</n:motd>"));
  test::load(response, test::success("<n:motd>new</n:motd>"));
  EXPECT_EQ(response.Name(), L"Jane");
  EXPECT_EQ(response.MOTD(), L"new");
}

TEST(AuthenticateResponse, ReportsAFailingExtractionAndKeepsWhatWasReadBefore) {
  const auto document =
      test::parsed(test::success("<n:name>a name too long to be stored "
                                 "in place</n:name><n:motd>a message too long "
                                 "to be stored in place</n:motd>"));
  const std::wstring expected =
      L"Error 7 (Out of memory) in procedure extractData of Class Module AuthenticateRsp";
  bool keptTheName = false;
  for (int before = 0; before < 200; ++before) {
    const test::FailureRecorder recorder;
    AuthenticateRsp response;
    {
      const test::FailingAllocation failure(before);
      response.ResponseDoc(document);
      if (!failure.hasFailed()) break;
    }
    const auto reports = recorder.reports();
    if (std::ranges::find(reports, expected) == reports.end()) continue;
    EXPECT_FALSE(response.Error());
    EXPECT_EQ(response.MOTD(), L"");
    keptTheName = keptTheName || !response.Name().empty();
  }
  EXPECT_TRUE(keptTheName);
}

}  // namespace
}  // namespace ktpnaips
