#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/briefing/charts.h>
#include <ktpnaips/briefing/light.h>
#include <ktpnaips/briefing/notams.h>
#include <ktpnaips/briefing/raim.h>
#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/masking.h>
#include <ktpnaips/core/password.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/core/response.h>
#include <ktpnaips/notification/filing.h>
#include <ktpnaips/notification/notification_directory.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/spfib/general_met.h>
#include <ktpnaips/spfib/location_directory.h>
#include <ktpnaips/spfib/route_directory.h>
#include <ktpnaips/spfib/spfib_directory.h>
#include <ktpnaips/spfib/spfib_requests.h>
#include <ktpnaips/spfib/wind_temp_profile.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "tests/support/failing_allocation.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/network_faults.h"
#include "tests/support/raw_server.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using test::RawServer;

std::string http(const std::string& status, const std::string& body) {
  return "HTTP/1.1 " + status +
         "\r\nContent-Type: text/xml\r\nContent-Length: " + std::to_string(body.size()) +
         "\r\nConnection: close\r\n\r\n" + body;
}

/// What comes of the request at a server that answers so; the server may close without an answer.
template <class Request>
auto answered(const Request& request, const std::string& answer) {
  const RawServer server(test::answering(answer));
  const test::SubmitsTo there(server.address(), 20'000);
  return request.submit();
}

template <class Request>
Outcome outcomeOf(const Request& request, const std::string& answer) {
  const test::FailureRecorder failures;  // of answers that lack what the request is for
  return answered(request, answer)->outcome();
}

/// What comes of the request when nobody listens.
template <class Request>
auto unconnected(const Request& request) {
  const test::SubmitsTo there(L"127.0.0.1:" + std::to_wstring(test::unusedPort()), 20'000);
  return request.submit();
}

constexpr std::wstring_view rule = L"\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n";

class PlainResponse final : public ResponseBase {};

TEST(Outcome, HasANameForEveryLanguage) {
  EXPECT_EQ(nameOf(Outcome::success), L"success");
  EXPECT_EQ(nameOf(Outcome::refused), L"refused");
  EXPECT_EQ(nameOf(Outcome::fault), L"fault");
  EXPECT_EQ(nameOf(Outcome::unreadable), L"unreadable");
  EXPECT_EQ(nameOf(Outcome::notSent), L"not-sent");
  EXPECT_EQ(nameOf(Outcome::inDoubt), L"in-doubt");
  EXPECT_EQ(nameOf(Outcome::none), L"not-sent");
}

TEST(Outcome, IsNoneUntilThereIsAnAnswer) {
  const PlainResponse response;
  EXPECT_EQ(response.outcome(), Outcome::none);
  EXPECT_EQ(response.errorCode(), std::nullopt);
  EXPECT_EQ(response.reason(), L"No response set");
  EXPECT_EQ(response.sentDocument(), "");
}

TEST(Outcome, IsWhatAKeptAnswerSays) {
  const auto kept = [](const std::string& document) {
    const test::FailureRecorder failures;
    PlainResponse response;
    test::load(response, document);
    EXPECT_EQ(response.errorCode(), std::nullopt);
    EXPECT_EQ(response.reason(), response.ErrorText());
    EXPECT_EQ(response.sentDocument(), "");
    return response.outcome();
  };
  EXPECT_EQ(kept(test::success("")), Outcome::success);
  EXPECT_EQ(kept(test::answer("<n:a status=\"FAILURE\"/>")), Outcome::refused);
  EXPECT_EQ(kept(test::answer("<s:Fault/>")), Outcome::fault);
  EXPECT_EQ(kept("<html/>"), Outcome::unreadable);
  EXPECT_EQ(kept(test::answer("<n:a/>")), Outcome::unreadable);
  EXPECT_EQ(kept(test::answer("")), Outcome::unreadable);
  PlainResponse response;
  response.ResponseDoc(xml::Document());
  EXPECT_EQ(response.outcome(), Outcome::none);
}

TEST(Outcome, IsWhatTheServiceAnswers) {
  EXPECT_EQ(outcomeOf(AuthenticateRqs(), http("200 OK", test::success(""))), Outcome::success);
  EXPECT_EQ(outcomeOf(AuthenticateRqs(), http("200 OK", test::answer("<n:a status=\"FAILURE\"/>"))),
            Outcome::refused);
  EXPECT_EQ(outcomeOf(AuthenticateRqs(), http("200 OK", test::answer("<s:Fault/>"))),
            Outcome::fault);
}

TEST(Outcome, OfARequestThatCannotBeWrittenIsNone) {
  const test::FailureRecorder failures;
  AuthenticateRqs request;
  request.abstractReq().User(L"pilot\x02");
  const auto response = request.submit();
  EXPECT_EQ(response->outcome(), Outcome::none);
  EXPECT_EQ(response->errorCode(), std::nullopt);
  EXPECT_EQ(response->reason(), L"No response set");
  EXPECT_EQ(response->sentDocument(), "");
}

TEST(Outcome, OfARefusedConnectionIsNotSentWhateverTheRequestIsFor) {
  const auto login = unconnected(AuthenticateRqs());
  EXPECT_EQ(login->outcome(), Outcome::notSent);
  EXPECT_EQ(login->errorCode(), 12029U);
  EXPECT_EQ(unconnected(SubmitICAOFlightNotifRqs())->outcome(), Outcome::notSent);
}

TEST(Outcome, OfAnAddressThatIsNoneIsNotSent) {
  const test::SubmitsTo there(L"nowhere", 20'000);
  const auto response = SubmitICAOFlightNotifRqs().submit();
  EXPECT_EQ(response->outcome(), Outcome::notSent);
  EXPECT_EQ(response->errorCode(), 12005U);
}

const std::string cutOff = "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\n\r\n<cut";

/// Answers that nobody can read.
const std::string unreadable[] = {"",
                                  cutOff,
                                  http("200 OK", "<html>sorry</html>"),
                                  http("200 OK", test::answer("<n:a/>")),
                                  http("502 Bad Gateway", ""),
                                  http("500 Error", test::answer("<s:Fault/>"))};

TEST(Outcome, OfARequestThatChangesSomethingIsInDoubtWithoutAReadableAnswer) {
  for (const std::string& answer : unreadable) {
    EXPECT_EQ(outcomeOf(SubmitICAOFlightNotifRqs(), answer), Outcome::inDoubt) << answer;
    EXPECT_EQ(outcomeOf(SubmitSARTimeNotifRqs(), answer), Outcome::inDoubt) << answer;
  }
  EXPECT_EQ(outcomeOf(ChangePasswordRqs(), cutOff), Outcome::inDoubt);
  EXPECT_EQ(outcomeOf(SPFIBRqs(), cutOff), Outcome::inDoubt);
  EXPECT_EQ(outcomeOf(UpdateSPFIBRqs(), cutOff), Outcome::inDoubt);
}

TEST(Outcome, OfAnyOtherRequestIsUnreadableWithoutAReadableAnswer) {
  for (const std::string& answer : unreadable) {
    EXPECT_EQ(outcomeOf(AuthenticateRqs(), answer), Outcome::unreadable) << answer;
  }
  EXPECT_EQ(outcomeOf(GetGroupAffiliationRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(AreaBriefingRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(LocationBriefingRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(MetBriefingRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(BriefingRequest(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(FirstLastLightRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(RAIMRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(ViewNOTAMListForSPFIBRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(RetrieveFullTextNotamRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(GetSPFIBRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(ActiveSPFIBDirectoryRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(WindTempProfileRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(GetGeneralMETMessageRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(GeneralMETMessageDirRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(RouteDirectoryRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(GetRouteRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(LocAirspaceDirectoryRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(ActiveFlightNotifDirRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(GetChartRqs(), cutOff), Outcome::unreadable);
  EXPECT_EQ(outcomeOf(ChartDirectoryRqs(), cutOff), Outcome::unreadable);
}

TEST(Outcome, HasTheNetworksCodeOfABrokenExchangeAlone) {
  const RawServer server([](test::Peer& peer) { peer.waitForClose(); });
  const test::SubmitsTo there(server.address(), 500);
  const auto silent = SubmitICAOFlightNotifRqs().submit();
  EXPECT_EQ(silent->outcome(), Outcome::inDoubt);
  EXPECT_NE(silent->ErrorText().find(L"  Dec: " + std::to_wstring(silent->errorCode().value_or(0))),
            std::wstring::npos);
  for (const std::string& answer : {cutOff, http("502 Bad Gateway", "")}) {
    EXPECT_EQ(answered(AuthenticateRqs(), answer)->errorCode(), std::nullopt) << answer;
  }
}

TEST(Reason, IsTheErrorTextWithoutTheRequest) {
  for (const auto& response :
       {unconnected(AuthenticateRqs()), answered(AuthenticateRqs(), cutOff),
        answered(AuthenticateRqs(), http("200 OK", test::answer("<n:a status=\"NO\"/>")))}) {
    EXPECT_TRUE(response->ErrorText().starts_with(response->reason() + std::wstring(rule)))
        << text::toUtf8(response->ErrorText());
    EXPECT_NE(response->reason(), L"");
  }
  EXPECT_EQ(answered(AuthenticateRqs(), http("200 OK", test::success("")))->reason(), L"");
}

TEST(Reason, ShowsNoPasswordThatAnAnswerRepeats) {
  const std::string echo = "<a password='pw'>";
  const auto response = answered(AuthenticateRqs(), http("200 OK", echo));
  EXPECT_NE(response->ErrorText().find(L"<a password='pw'>"), std::wstring::npos);
  EXPECT_EQ(response->reason(),
            L"SOAP Fault: Unrecognised response.  Details below.\r\n<a password='********'>\r\n");
}

TEST(Reason, IsTheTextThatAHostSets) {
  const auto response = unconnected(AuthenticateRqs());
  response->ErrorText(L"mine");
  EXPECT_EQ(response->ErrorText(), L"mine");
  EXPECT_EQ(response->reason(), L"mine");
}

TEST(SentDocument, IsTheRequestWithItsPasswordMasked) {
  ChangePasswordRqs request;
  request.NewPassword(L"other");
  for (const auto& response : {unconnected(request), answered(request, cutOff),
                               answered(request, http("200 OK", test::success("")))}) {
    EXPECT_NE(response->sentDocument().find("requestor=\"PILOT1\" password=\"********\""),
              std::string::npos)
        << response->sentDocument();
    EXPECT_NE(response->sentDocument().find(">********</ndd:new-password>"), std::string::npos);
    if (!response->Error()) continue;
    const std::string whole = text::toUtf8(response->ErrorText());
    EXPECT_TRUE(
        whole.ends_with("password=\"pw\"><ndd:new-password>other</ndd:new-password>"
                        "<ndd:email/></ndd:change-password-rqs></SOAP-ENV:Body>"
                        "</SOAP-ENV:Envelope>"))
        << whole;
    EXPECT_TRUE(withMaskedPasswords(whole).ends_with(response->sentDocument()));
  }
}

/// Whatever allocation fails, the outcome is the truth about the request.
TEST(Outcome, OfACallThatMemoryEndedIsInDoubtIfItWasSent) {
  std::atomic<int> requests = 0;
  const RawServer server([&](test::Peer& peer) {
    peer.readRequest();
    ++requests;
    peer.write(test::goodAnswer());
  });
  const test::SubmitsTo there(server.address(), 20'000);
  EXPECT_FALSE(test::fileFlightPlan().isError);
  const test::FailureRecorder failures;
  int inDoubt = 0;
  int notSent = 0;
  for (int before = 0;; ++before) {
    requests = 0;
    std::shared_ptr<SubmitICAOFlightNotifRsp> response;
    bool hasFailed = false;
    {
      const SubmitICAOFlightNotifRqs request;
      const test::FailingAllocation fails(before);
      response = request.submit();
      hasFailed = fails.hasFailed();
    }
    if (!hasFailed) break;
    if (response == nullptr) {
      EXPECT_EQ(requests, 0) << before;
      continue;
    }
    switch (response->outcome()) {
      case Outcome::success:
        EXPECT_EQ(requests, 1) << before;
        break;
      case Outcome::inDoubt:
        EXPECT_TRUE(response->Error());
        ++inDoubt;
        break;
      case Outcome::none:
      case Outcome::notSent:
        EXPECT_EQ(requests, 0) << before;
        ++notSent;
        break;
      default:
        ADD_FAILURE() << before << ": " << text::toUtf8(nameOf(response->outcome()));
    }
  }
  EXPECT_GT(inDoubt, 0);
  EXPECT_GT(notSent, 0);
}

}  // namespace
}  // namespace ktpnaips
