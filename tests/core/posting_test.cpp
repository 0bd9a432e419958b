#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/posting.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "tests/support/failure_recorder.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

const std::wstring noURL =
    L"Error 5 (Invalid procedure call or argument) in procedure splitURL of Module winInet";

/// A request that does what a test wants.
class Scripted final : public IAppendable {
 public:
  using Script = std::function<void(const xml::Node&, std::wstring_view)>;
  explicit Scripted(Script script) : script_(std::move(script)) {}
  void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const override {
    script_(parent, namespaceUri);
  }

 private:
  Script script_;
};

class PostedResponse final : public ResponseBase {};

/// A configuration without a base URL: whatever is posted fails before anything is sent.
class Posting : public testing::Test {
 protected:
  Posting() {
    config.Mode(5);
    config.UserName(L"pilot1");
    config.Password(L"pw");
  }

  NAIPSConfig config;

 private:
  test::FreshSettings settings_;
};

TEST_F(Posting, WrapsTheRequestInASoap11Envelope) {
  std::wstring parentName;
  std::wstring namespaceGiven;
  const Scripted request([&](const xml::Node& parent, std::wstring_view namespaceUri) {
    parentName = parent.name();
    namespaceGiven = namespaceUri;
    modBrevank::addElement(parent, L"some-rqs", namespaceUri, L"a<&>b");
  });
  EXPECT_EQ(requestDocument(request),
            test::requestEnvelope("<ndd:some-rqs" + test::nddDeclaration() +
                                  ">a&lt;&amp;&gt;b</ndd:some-rqs>"));
  EXPECT_EQ(parentName, L"SOAP-ENV:Body");
  EXPECT_EQ(namespaceGiven, Deployment::current().schemaNamespace);
}

TEST_F(Posting, WritesARequestInTheDeployedSchemaNamespace) {
  Deployment deployment;
  deployment.schemaNamespace = L"http://other.test/naips/xsd";
  const test::ScopedDeployment use(deployment);
  EXPECT_EQ(requestDocument(AuthenticateRqs()),
            "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\">"
            "<SOAP-ENV:Body><ndd:authenticate-rqs xmlns:ndd=\"http://other.test/naips/xsd\" "
            "source=\"orvalix\" requestor=\"PILOT1\" password=\"pw\"/></SOAP-ENV:Body>"
            "</SOAP-ENV:Envelope>");
}

TEST_F(Posting, BuildsTheDocumentAfreshEachTime) {
  AuthenticateRqs request;
  const std::string first = requestDocument(request);
  EXPECT_EQ(requestDocument(request), first);
  request.abstractReq().Scope(L"s");
  EXPECT_NE(requestDocument(request), first);
  request.abstractReq().Scope(L"");
  EXPECT_EQ(requestDocument(request), first);
}

/// The texts of a code in the message of the step that failed.
std::wstring connectFailure(std::wstring_view errorText) {
  const std::wstring_view start = L"InternetConnect call failed: ";
  const auto at = errorText.find(L"  Dec: ");
  if (errorText.find(start) == std::wstring_view::npos || at == std::wstring_view::npos) return {};
  const auto code = std::stoul(std::wstring(errorText.substr(at + 7)));
  return std::wstring(start) + winInet::apiErrorText(static_cast<std::uint32_t>(code));
}

TEST_F(Posting, ReportsAMissingBaseUrlAndAnswersWithTheTransportMessageAndTheRequest) {
  const test::FailureRecorder recorder;
  const AuthenticateRqs request;
  const auto response = request.submit();
  ASSERT_NE(response, nullptr);
  EXPECT_EQ(recorder.reports(), test::Reports{noURL});
  EXPECT_TRUE(response->Error());
  EXPECT_FALSE(response->Payload());
  EXPECT_FALSE(response->ResponseDoc());
  const std::wstring message = connectFailure(response->ErrorText());
  ASSERT_FALSE(message.empty()) << text::toUtf8(response->ErrorText());
  EXPECT_EQ(response->ErrorText(), L"SOAP Fault: Unrecognised response.  Details below.\r\n" +
                                       message +
                                       L"\r\n\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n" +
                                       text::fromUtf8(requestDocument(request)));
  EXPECT_NE(response->ErrorText().find(L"requestor=\"PILOT1\" password=\"pw\""),
            std::wstring::npos);
}

TEST_F(Posting, GivesEachSubmitAResponseOfItsOwn) {
  const test::FailureRecorder recorder;
  const AuthenticateRqs request;
  const auto first = request.submit();
  const auto second = request.submit();
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(first->ErrorText(), second->ErrorText());
}

TEST_F(Posting, LeavesTheFieldsOfAFailedResponseAtTheirDefaults) {
  const test::FailureRecorder recorder;
  const auto response = AuthenticateRqs().submit();
  ASSERT_NE(response, nullptr);
  EXPECT_EQ(response->Name(), L"");
  EXPECT_FALSE(response->Scheduling());
}

TEST_F(Posting, TakesNoResponse) {
  const test::FailureRecorder recorder;
  Utils::aaapost(1, L"authenticate-rqs", AuthenticateRqs(), nullptr);
  EXPECT_EQ(recorder.reports(), test::Reports{noURL});
}

TEST_F(Posting, AppendsTheTraceToWhatTheResponseSays) {
  const test::FailureRecorder recorder;
  const auto response = std::make_shared<PostedResponse>();
  Utils::aaapost(9, L"", Scripted([](const xml::Node& parent, std::wstring_view uri) {
                   modBrevank::addElement(parent, L"x", uri);
                 }),
                 response);
  EXPECT_TRUE(response->ErrorText().ends_with(
      L"\r\n\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n" +
      text::fromUtf8(test::requestEnvelope("<ndd:x" + test::nddDeclaration() + "/>"))));
}

TEST_F(Posting, TrapsAFailingRequestAndSendsNothing) {
  const struct {
    Scripted::Script script;
    std::wstring report;
  } cases[] = {
      {[](auto&&...) { throw RuntimeFault(13); },
       L"Error 13 (Type mismatch) in procedure aaapost of Module Utils"},
      {[](auto&&...) { throw std::runtime_error("boom"); },
       L"Error 51 (Internal error: boom) in procedure aaapost of Module Utils"},
      {[](auto&&...) { throw std::bad_alloc(); },
       L"Error 7 (Out of memory) in procedure aaapost of Module Utils"},
  };
  for (const auto& each : cases) {
    const test::FailureRecorder recorder;
    const auto response = std::make_shared<PostedResponse>();
    EXPECT_NO_THROW(Utils::aaapost(1, L"x", Scripted(each.script), response));
    EXPECT_EQ(recorder.reports(), test::Reports{each.report});
    EXPECT_TRUE(response->Error());
    EXPECT_EQ(response->ErrorText(), L"No response set");
  }
}

TEST_F(Posting, RefusesCharactersThatXmlDoesNotAllowAndSendsNothing) {
  const std::wstring forbidden[] = {
      std::wstring(1, L'\0'), L"\x01", L"\x0b", L"\x1f", L"\ufffe", L"\uffff"};
  for (const auto& character : forbidden) {
    for (const bool inAttribute : {true, false}) {
      const test::FailureRecorder recorder;
      const auto response = std::make_shared<PostedResponse>();
      const std::wstring value = L"a" + character + L"b";
      const Scripted request([&](const xml::Node& parent, std::wstring_view uri) {
        const xml::Node element =
            modBrevank::addElement(parent, L"x", uri, inAttribute ? L"" : value);
        if (inAttribute) modBrevank::addAttribute(element, L"y", uri, value);
      });
      Utils::aaapost(1, L"x", request, response);
      const auto reports = recorder.reports();
      ASSERT_EQ(reports.size(), 1U);
      EXPECT_TRUE(reports[0].starts_with(L"Error 5 ("));
      EXPECT_TRUE(reports[0].ends_with(L") in procedure aaapost of Module Utils"));
      EXPECT_TRUE(response->Error());
      EXPECT_EQ(response->ErrorText(), L"No response set");
    }
  }
}

TEST_F(Posting, ReturnsTheUnansweredResponseWhenTheRequestCannotBeWritten) {
  const test::FailureRecorder recorder;
  AuthenticateRqs request;
  request.abstractReq().User(L"pilot\x02");
  const auto response = request.submit();
  ASSERT_NE(response, nullptr);
  EXPECT_TRUE(response->Error());
  EXPECT_EQ(response->ErrorText(), L"No response set");
  EXPECT_EQ(recorder.reports().size(), 1U);
}

TEST_F(Posting, CarriesCharactersBeyondTheBasicPlane) {
  const Scripted request([](const xml::Node& parent, std::wstring_view uri) {
    modBrevank::addElement(parent, L"x", uri, L"\u00e9\u20ac\U0001F6E9");
  });
  EXPECT_EQ(requestDocument(request),
            test::requestEnvelope("<ndd:x" + test::nddDeclaration() +
                                  ">\xC3\xA9\xE2\x82\xAC\xF0\x9F\x9B\xA9</ndd:x>"));
}

}  // namespace
}  // namespace ktpnaips
