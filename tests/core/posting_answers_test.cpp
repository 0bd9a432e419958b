#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/data_folder.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/raw_server.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

/// A service that gives one answer to every request and remembers the requests.
class Service {
 public:
  explicit Service(std::string answer)
      : answer_(std::move(answer)), server_([this](test::Peer& peer) {
          const std::string request = peer.readRequest();
          {
            const std::lock_guard lock(mutex_);
            requests_.push_back(request);
          }
          peer.write(answer_);
        }) {
    Deployment deployment;
    deployment.testHost = L"trial.test";
    deployment.proxyHost = L"relay.test";
    deployment.connectTo = server_.address();
    deployment_ = std::make_unique<test::ScopedDeployment>(deployment);
    NAIPSConfig config;
    config.Mode(1);
    config.UseProxy(true);
    config.UserName(L"pilot1");
    config.Password(L"pw");
  }

  static std::string http(std::string_view status, std::string_view type, std::string_view body) {
    return headers(status, type, body.size()) + std::string(body);
  }
  static std::string headers(std::string_view status, std::string_view type, std::size_t length) {
    return "HTTP/1.1 " + std::string(status) + "\r\nContent-Type: " + std::string(type) +
           "\r\nContent-Length: " + std::to_string(length) + "\r\n\r\n";
  }

  std::vector<std::string> requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
  }
  int connections() const { return server_.connections(); }

 private:
  test::FreshSettings settings_;
  std::string answer_;
  mutable std::mutex mutex_;
  std::vector<std::string> requests_;
  test::RawServer server_;
  std::unique_ptr<test::ScopedDeployment> deployment_;
};

constexpr std::string_view xmlType = "text/xml;charset=UTF-8";

std::wstring trace(const IAppendable& request) {
  return L"\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n" +
         text::fromUtf8(requestDocument(request));
}

std::wstring unrecognised(std::wstring_view answer) {
  return L"SOAP Fault: Unrecognised response.  Details below.\r\n" + std::wstring(answer) + L"\r\n";
}

/// The error text of a login that is answered so.
std::wstring errorTextOf(const std::string& answer) {
  const Service service(answer);
  const AuthenticateRqs request;
  const auto response = request.submit();
  EXPECT_TRUE(response->Error());
  const std::wstring text = response->ErrorText();
  const std::wstring end = trace(request);
  EXPECT_TRUE(text.ends_with(end)) << text::toUtf8(text);
  return text.substr(0, text.size() - std::min(end.size(), text.size()));
}

TEST(PostingToAService, SendsTheDocumentWithTheFixedHeadersToThePathOfTheService) {
  const Service service(Service::http("200 OK", xmlType, test::success("<n:name>Jane</n:name>")));
  const AuthenticateRqs request;
  const auto response = request.submit();
  EXPECT_FALSE(response->Error()) << text::toUtf8(response->ErrorText());
  EXPECT_EQ(response->Name(), L"Jane");
  ASSERT_EQ(service.requests().size(), 1U);
  const std::string sent = service.requests()[0];
  EXPECT_TRUE(sent.starts_with("POST /naips/account-service HTTP/1.1\r\n"));
  EXPECT_TRUE(sent.ends_with("\r\n\r\n" + requestDocument(request)));
  for (const char* line :
       {"\r\nHost: relay.test\r\n", "\r\nAccept: text/*\r\n", "\r\nAccept-Language: en\r\n",
        "\r\nContent-Type: text/xml; charset=utf-8\r\n", "\r\nConnection: Keep-Alive\r\n",
        "\r\nUser-Agent: Velmora Flight Planner\r\n"}) {
    EXPECT_NE(sent.find(line), std::string::npos) << line;
  }
  EXPECT_EQ(sent.find("SOAPAction"), std::string::npos);
}

TEST(PostingToAService, AddsTheTraceToANaipsError) {
  EXPECT_EQ(errorTextOf(Service::http(
                "200 OK", xmlType,
                test::answer("<n:a status=\"FAILURE\"><n:info>Bad password</n:info></n:a>"))),
            L"NAIPS Error: FAILURE\r\nInfo: Bad password\r\n");
}

TEST(PostingToAService, AddsTheTraceToASoapFault) {
  EXPECT_EQ(errorTextOf(Service::http("200 OK", xmlType,
                                      test::answer("<s:Fault><faultcode>c</faultcode>"
                                                   "<faultstring>f</faultstring></s:Fault>"))),
            L"SOAP Fault Code: c\r\nSOAP Fault String: f\r\n");
}

TEST(PostingToAService, AddsTheTraceToTheInitialTextOfAnUnloadableAnswer) {
  const test::FailureRecorder recorder;
  EXPECT_EQ(errorTextOf(Service::http("200 OK", xmlType, test::answer("<n:a/>"))),
            L"No response set");
  EXPECT_EQ(
      recorder.reports(),
      test::Reports{L"Error 94 (Invalid use of Null) in procedure loadResponse of Module Utils"});
}

TEST(PostingToAService, TakesXmlWithoutASoapBodyForNoSoapResponse) {
  EXPECT_EQ(errorTextOf(Service::http("200 OK", xmlType, "<a>\n<b>one\ntwo</b>\n</a>")),
            L"SOAP Fault: Not a SOAP response\r\none\r\ntwo");
}

TEST(PostingToAService, DoesNotRecogniseAnAnswerThatIsNoXml) {
  EXPECT_EQ(errorTextOf(Service::http("200 OK", xmlType, "sorry\nlater\r\n")),
            unrecognised(L"sorry\r\nlater\r\n"));
  EXPECT_EQ(errorTextOf(Service::http("200 OK", xmlType, "")), unrecognised(L""));
}

TEST(PostingToAService, DoesNotRecogniseADocumentTypeDeclaration) {
  EXPECT_EQ(errorTextOf(Service::http("200 OK", xmlType, "<!DOCTYPE a><a/>")),
            unrecognised(L"<!DOCTYPE a><a/>"));
}

TEST(PostingToAService, ShowsTheBytesOfAnAnswerThatIsNotUtf8AsFarAsTheyCanBe) {
  EXPECT_EQ(errorTextOf(Service::http("200 OK", xmlType, "<a>caf\xE9 \xC3\xA9</a>")),
            unrecognised(L"<a>caf\ufffd \u00e9</a>"));
}

TEST(PostingToAService, DoesNotRecogniseAFaultThatComesWithAnotherStatusThan200) {
  const std::string body = test::answer("<s:Fault><faultcode>c</faultcode></s:Fault>");
  EXPECT_EQ(errorTextOf(Service::http("500 Internal Server Error", "text/xml", body)),
            unrecognised(text::fromUtf8(
                Service::headers("500 Internal Server Error", "text/xml", body.size()) + body)));
}

TEST(PostingToAService, DoesNotRecogniseAnAnswerWhoseContentTypeIsNotXml) {
  const std::string body = test::success("");
  for (const char* type : {"text/html", "text/XML", "text/plain"}) {
    EXPECT_EQ(errorTextOf(Service::http("200 OK", type, body)),
              unrecognised(text::fromUtf8(Service::headers("200 OK", type, body.size()) + body)));
  }
}

TEST(PostingToAService, TakesAnyContentTypeThatContainsXml) {
  for (const char* type : {"application/xml", "application/soap+xml", "x-xml-x"}) {
    const Service service(Service::http("200 OK", type, test::success("<n:name>J</n:name>")));
    EXPECT_EQ(AuthenticateRqs().submit()->Name(), L"J") << type;
  }
}

TEST(PostingToAService, SendsNothingWhenTheRequestHoldsAForbiddenCharacter) {
  const Service service(Service::http("200 OK", xmlType, test::success("")));
  const test::FailureRecorder recorder;
  AuthenticateRqs request;
  request.abstractReq().Scope(L"a\x01");
  const auto response = request.submit();
  EXPECT_TRUE(response->Error());
  EXPECT_EQ(response->ErrorText(), L"No response set");
  EXPECT_EQ(recorder.reports().size(), 1U);
  EXPECT_EQ(service.connections(), 0);
}

TEST(PostingToAService, TrapsAFailingExtractionAndReturnsWhatWasReadBefore) {
  const test::DataFolder folder;
  const auto product = [](const std::string& base64) {
    return "<n:product type=\"PNG\"><n:content>" + base64 + "</n:content></n:product>";
  };
  const Service service(Service::http(
      "200 OK", xmlType,
      test::success("<n:content>text</n:content>" + product("QUJD") + product("QUJ"))));
  const test::FailureRecorder recorder;
  AreaBriefingRqs request;
  const auto response = request.submit();
  ASSERT_NE(response, nullptr);
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error -2147221504 (Input string is not valid Base64.) in procedure "
                          L"aaapost of Module Utils"});
  EXPECT_FALSE(response->Error());
  EXPECT_EQ(response->ErrorText(), L"");
  EXPECT_EQ(response->Content(), L"text");
  EXPECT_EQ(response->Count(), 2);
  EXPECT_EQ(folder.names(), std::vector<std::string>{"NAIPS1.PNG"});
}

TEST(PostingToAService, SendsBriefingRequestsToTheBriefingService) {
  const Service service(Service::http("200 OK", xmlType, test::success("")));
  AreaBriefingRqs().submit();
  LocationBriefingRqs().submit();
  MetBriefingRqs().submit();
  BriefingRequest().submit();
  ASSERT_EQ(service.requests().size(), 4U);
  for (const auto& request : service.requests()) {
    EXPECT_TRUE(request.starts_with("POST /naips/briefing-service HTTP/1.1\r\n"));
  }
}

TEST(PostingToAService, OpensAConnectionForEachRequest) {
  const Service service(Service::http("200 OK", xmlType, test::success("")));
  const AuthenticateRqs request;
  const auto first = request.submit();
  const auto second = request.submit();
  EXPECT_NE(first, second);
  EXPECT_EQ(service.connections(), 2);
}

}  // namespace
}  // namespace ktpnaips
