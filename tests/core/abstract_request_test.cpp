#include <ktpnaips/core/abstract_request.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "tests/support/failure_recorder.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

class RequestHeader : public testing::Test {
 protected:
  AbstractRequest request{L"authenticate-rqs"};
  NAIPSConfig config;

  /// The request document for these attributes after the source.
  static std::string with(const std::string& attributes) {
    return test::requestEnvelope("<ndd:authenticate-rqs" + test::nddDeclaration() +
                                 " source=\"orvalix\" " + attributes + "/>");
  }

 private:
  test::FreshSettings settings_;
};

TEST_F(RequestHeader, StartsAtTheDefaults) {
  const AbstractRequest fresh;
  EXPECT_EQ(fresh.User(), L"");
  EXPECT_EQ(fresh.Password(), L"");
  EXPECT_EQ(fresh.Scope(), L"");
  EXPECT_EQ(fresh.Source(), L"orvalix");
  EXPECT_EQ(fresh.ElementName(), L"abstractrequest");
}

TEST_F(RequestHeader, ReadsTheUserBackUpperCasedAndTrimmed) {
  request.User(L" pilot  two ");
  EXPECT_EQ(request.User(), L"PILOT  TWO");
}

TEST_F(RequestHeader, StoresPasswordScopeAndSourceUnchanged) {
  request.Password(L" Pass Word ");
  request.Scope(L" Area ");
  request.Source(L" My Planner ");
  EXPECT_EQ(request.Password(), L" Pass Word ");
  EXPECT_EQ(request.Scope(), L" Area ");
  EXPECT_EQ(request.Source(), L" My Planner ");
}

TEST_F(RequestHeader, TrimsTheElementName) {
  request.ElementName(L"  Some-Rqs ");
  EXPECT_EQ(request.ElementName(), L"Some-Rqs");
}

TEST_F(RequestHeader, NamesAnUnnamedElementAbstractrequest) {
  request.ElementName(L"   ");
  EXPECT_EQ(request.ElementName(), L"abstractrequest");
  request.ElementName(L"x");
  request.ElementName(L"");
  EXPECT_EQ(request.ElementName(), L"abstractrequest");
  EXPECT_EQ(requestDocument(AbstractRequest()),
            test::requestEnvelope(test::requestStart("abstractrequest") + "/>"));
}

TEST_F(RequestHeader, CarriesTheConfiguredAccountWithoutOneOfItsOwn) {
  config.UserName(L"pilot1");
  config.Password(L"pw");
  EXPECT_EQ(requestDocument(request), with("requestor=\"PILOT1\" password=\"pw\""));
}

TEST_F(RequestHeader, IgnoresItsOwnPasswordWithoutAUserOfItsOwn) {
  config.UserName(L"pilot1");
  config.Password(L"pw");
  request.Password(L"other");
  EXPECT_EQ(requestDocument(request), with("requestor=\"PILOT1\" password=\"pw\""));
}

TEST_F(RequestHeader, CarriesAnEmptyAccountWhenNoneIsSet) {
  EXPECT_EQ(requestDocument(request), with("requestor=\"\" password=\"\""));
}

TEST_F(RequestHeader, NeverMixesItsOwnUserWithTheConfiguredPassword) {
  config.UserName(L"pilot1");
  config.Password(L"pw");
  request.User(L" pilot2 ");
  EXPECT_EQ(requestDocument(request), with("requestor=\"PILOT2\" password=\"\""));
}

TEST_F(RequestHeader, CarriesItsOwnAccount) {
  config.UserName(L"pilot1");
  config.Password(L"pw");
  request.User(L"pilot2");
  request.Password(L" Own ");
  EXPECT_EQ(requestDocument(request), with("requestor=\"PILOT2\" password=\" Own \""));
}

TEST_F(RequestHeader, TakesAUserOfBlanksForAnAccountOfItsOwn) {
  config.UserName(L"pilot1");
  config.Password(L"pw");
  request.User(L"  ");
  request.Password(L"own");
  EXPECT_EQ(requestDocument(request), with("requestor=\"\" password=\"own\""));
}

TEST_F(RequestHeader, CarriesTheScopeAsGivenAfterThePassword) {
  request.Scope(L" Area ");
  EXPECT_EQ(requestDocument(request), with("requestor=\"\" password=\"\" scope=\" Area \""));
}

TEST_F(RequestHeader, CarriesAScopeOfBlanks) {
  request.Scope(L" ");
  EXPECT_EQ(requestDocument(request), with("requestor=\"\" password=\"\" scope=\" \""));
}

TEST_F(RequestHeader, CarriesTheSourceThatTheHostSet) {
  request.Source(L"My Planner");
  EXPECT_EQ(requestDocument(request),
            test::requestEnvelope("<ndd:authenticate-rqs" + test::nddDeclaration() +
                                  " source=\"My Planner\" requestor=\"\" password=\"\"/>"));
  request.Source(L"");
  EXPECT_EQ(requestDocument(request),
            test::requestEnvelope("<ndd:authenticate-rqs" + test::nddDeclaration() +
                                  " source=\"\" requestor=\"\" password=\"\"/>"));
}

TEST_F(RequestHeader, CarriesAnyPasswordThroughTheDocument) {
  const std::wstring password = L"a<b>&\"c'd\u00e9\u20ac\U0001F6E9 \t\nend";
  request.User(L"p");
  request.Password(password);
  const xml::Document document = test::parsed(requestDocument(request));
  const xml::Node element = document.documentElement().firstChild().firstChild();
  EXPECT_EQ(element.attribute(L"password"), password);
}

TEST_F(RequestHeader, BecomesTheLastChildOfItsParent) {
  const xml::Document document = xml::Document::create();
  const xml::Node parent = document.appendElement(L"p", L"", L"");
  parent.appendElement(L"first", L"", L"");
  request.appendTo(parent, L"urn:x");
  EXPECT_EQ(parent.lastChild().name(), L"ndd:authenticate-rqs");
  EXPECT_EQ(parent.lastChild().namespaceUri(), L"urn:x");
}

TEST_F(RequestHeader, ReportsAnElementNameThatXmlDoesNotAllowAndGoesOn) {
  const test::FailureRecorder recorder;
  request.ElementName(L"no name");
  EXPECT_EQ(requestDocument(request),
            "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\">"
            "<SOAP-ENV:Body/></SOAP-ENV:Envelope>");
  const std::wstring missing =
      L"Error 91 (Object variable or With block variable not set) in procedure addAttribute of "
      L"Module modBrevank";
  const auto reports = recorder.reports();
  ASSERT_EQ(reports.size(), 4U);
  EXPECT_TRUE(reports[0].starts_with(L"Error -"));
  EXPECT_TRUE(reports[0].ends_with(L") in procedure addElement of Module modBrevank"));
  EXPECT_EQ(test::Reports(reports.begin() + 1, reports.end()), test::Reports(3, missing));
}

TEST_F(RequestHeader, ReadsTheAccountOfTheThreadThatWritesIt) {
  config.UserName(L"pilot1");
  config.Password(L"pw");
  std::string elsewhere;
  std::thread([&] { elsewhere = requestDocument(request); }).join();
  EXPECT_EQ(elsewhere, with("requestor=\"\" password=\"\""));
  EXPECT_EQ(requestDocument(request), with("requestor=\"PILOT1\" password=\"pw\""));
}

}  // namespace
}  // namespace ktpnaips
