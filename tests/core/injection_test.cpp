#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/briefing/charts.h>
#include <ktpnaips/briefing/notams.h>
#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/password.h>
#include <ktpnaips/notification/filing.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/failure_recorder.h"
#include "tests/support/network_faults.h"
#include "tests/support/raw_server.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips::test {
namespace {

/// A way for a host's text into a request: submits with the text.
struct Way {
  const char* name;
  std::function<void(const std::wstring& text)> submit;
};

std::ostream& operator<<(std::ostream& out, const Way& way) {
  return out << way.name;
}

template <class Request, class Fill>
Way way(const char* name, Fill fill) {
  return {name, [fill](const std::wstring& text) {
            Request request;
            fill(request, text);
            request.submit();
          }};
}

const std::vector<Way> ways{
    way<AuthenticateRqs>("ConfiguredUser",
                         [](auto&, const auto& text) { NAIPSConfig().UserName(text); }),
    way<AuthenticateRqs>("ConfiguredPassword",
                         [](auto&, const auto& text) { NAIPSConfig().Password(text); }),
    way<AuthenticateRqs>("User",
                         [](auto& request, const auto& text) { request.abstractReq().User(text); }),
    way<AuthenticateRqs>("Password",
                         [](auto& request, const auto& text) {
                           request.abstractReq().User(L"other");
                           request.abstractReq().Password(text);
                         }),
    way<AuthenticateRqs>(
        "Scope", [](auto& request, const auto& text) { request.abstractReq().Scope(text); }),
    way<AuthenticateRqs>(
        "Source", [](auto& request, const auto& text) { request.abstractReq().Source(text); }),
    way<ChangePasswordRqs>("NewPassword",
                           [](auto& request, const auto& text) { request.NewPassword(text); }),
    way<GetChartRqs>("ChartKey", [](auto& request, const auto& text) { request.Key(text); }),
    way<RetrieveFullTextNotamRqs>("NotamKey",
                                  [](auto& request, const auto& text) { request.addKey(text); }),
    way<LocationBriefingRqs>("Location",
                             [](auto& request, const auto& text) { request.addLocation(text); }),
    way<SubmitICAOFlightNotifRqs>("GroupOfAFiling",
                                  [](auto& request, const auto& text) { request.GroupId(text); }),
};

/// The names of all elements and attributes of a document, in their order.
std::wstring shapeOf(const std::string& document) {
  std::wstring shape;
  for (const xml::Node& node : parsed(document).selectAll("//* | //@*"))
    shape += node.name() + L' ';
  return shape;
}

class Injection : public testing::TestWithParam<Way> {
 protected:
  /// The requests that the server gets when `text` is submitted.
  std::vector<std::string> sentWith(const std::wstring& text) {
    std::vector<std::string> sent;
    {
      const RawServer server([&sent](Peer& peer) {
        sent.push_back(peer.readRequest());
        peer.write(goodAnswer());
      });
      const SubmitsTo there(server.address(), 20'000);
      GetParam().submit(text);
    }
    return sent;
  }
  static std::string headOf(const std::string& request) {
    std::string head = request.substr(0, request.find("\r\n\r\n"));
    const std::size_t length = head.find("\r\nContent-Length: ");
    return head.erase(length, head.find("\r\n", length + 2) - length);
  }
  static std::wstring shapeOfBody(const std::string& request) {
    return shapeOf(request.substr(request.find("\r\n\r\n") + 4));
  }
};

INSTANTIATE_TEST_SUITE_P(Ways, Injection, testing::ValuesIn(ways),
                         [](const auto& each) { return each.param.name; });

TEST_P(Injection, ChangesNeitherHeadersNorElements) {
  const FailureRecorder failures;  // of answers that lack what the request is for
  const auto harmless = sentWith(L"ABC");
  ASSERT_EQ(harmless.size(), 1U);
  for (const wchar_t* const text :
       {L"\"/><x a=\"", L"'/><x a='", L"</ndd:loc><ndd:loc>", L"]]>", L"<!--", L"<![CDATA[",
        L"<?x ?>", L"&amp;&#60;&x;", L"A\r\nX-Evil: 1\r\n\r\nPOST / HTTP/1.1\r\n\r\n", L"\tA\n"}) {
    const auto sent = sentWith(text);
    ASSERT_EQ(sent.size(), 1U) << text::toUtf8(text);
    EXPECT_EQ(headOf(sent[0]), headOf(harmless[0])) << text::toUtf8(text);
    EXPECT_EQ(shapeOfBody(sent[0]), shapeOfBody(harmless[0])) << text::toUtf8(text);
  }
}

TEST_P(Injection, SendsNothingOfATextThatXmlCannotHold) {
  for (const std::wstring& text :
       {std::wstring(L"A\0B", 3), std::wstring(L"A\x01"), std::wstring(L"A\uffff")}) {
    const FailureRecorder failures;
    EXPECT_TRUE(sentWith(text).empty());
    ASSERT_EQ(failures.reports().size(), 1U);
    EXPECT_TRUE(failures.reports()[0].starts_with(L"Error 5 (")) << text::toUtf8(text);
  }
}

}  // namespace
}  // namespace ktpnaips::test
