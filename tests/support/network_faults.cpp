#include "tests/support/network_faults.h"

#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/notification/filing.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <thread>
#include <utility>

#include "tests/support/failure_recorder.h"
#include "tests/support/platform_expectations.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"
#include "tests/support/time_limits.h"
#include "tests/support/wine.h"

namespace ktpnaips::test {

namespace {

using Script = RawServer::Script;

std::string head(std::string_view fields, std::string_view status = "200 OK") {
  return "HTTP/1.1 " + std::string(status) + "\r\nContent-Type: text/xml\r\n" +
         std::string(fields) + "\r\n";
}

std::string length(std::size_t bytes) {
  return "Content-Length: " + std::to_string(bytes) + "\r\n";
}

std::string firstHalf() {
  return goodBody().substr(0, goodBody().size() / 2);
}

/// What the client has not read of an answer is lost in a reset.
Script answeringThenReset(std::string bytes) {
  return [bytes = std::move(bytes)](Peer& peer) {
    peer.readRequest();
    peer.write(bytes);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    peer.reset();
  };
}

Script answeringThenSilent(std::string bytes) {
  return [bytes = std::move(bytes)](Peer& peer) {
    peer.readRequest();
    peer.write(bytes);
    peer.waitForClose();
  };
}

/// Writes the start, then the rest again and again until the client has enough.
Script endlessly(std::string start, std::string rest) {
  return [start = std::move(start), rest = std::move(rest)](Peer& peer) {
    peer.readRequest();
    peer.write(start);
    for (;;) peer.write(rest);
  };
}

Script drippingByteByByte(std::string bytes) {
  return [bytes = std::move(bytes)](Peer& peer) {
    peer.readRequest();
    for (const char& byte : bytes) {
      peer.write({&byte, 1});
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  };
}

/// From every path but the one that it names.
Script redirecting(const std::string& code) {
  return [code](Peer& peer) {
    const bool isElsewhere = peer.readRequest().find(" /elsewhere ") != std::string::npos;
    peer.write(isElsewhere ? goodAnswer()
                           : "HTTP/1.1 " + code + " Elsewhere\r\nLocation: /elsewhere\r\n" +
                                 length(0) + "Connection: close\r\n\r\n");
  };
}

std::string repeated(std::string_view text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

std::string chunked(std::string_view chunks) {
  return head("Transfer-Encoding: chunked\r\n") + std::string(chunks);
}

/// `printf '<late/>' | gzip -n`
const std::string zipped(
    "\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\x03\xb3\xc9\x49\x2c"
    "\x49\xd5\xb7\x03\x00\x42\x9a\xf7\x50\x07\x00\x00\x00",
    27);

/// Nothing else is shown.
Seen shownAlone(const std::wstring& answer) {
  return shown(answer + L"\r\n\r\n\r\n+-+-+-+\r\n");
}

Seen shownEmpty() {
  return shownAlone(L"");
}

/// Wine takes it for an answer.
Seen shownAsEmptyHeaders() {
  return shownAlone(L"\r\n");
}

/// Under Wine the host sees the same unless something else is said.
NetworkFault fault(std::string name, Script misbehave, Seen seen,
                   std::vector<Seen> seenUnderWine = {}) {
  if (seenUnderWine.empty()) seenUnderWine = {seen};
  return {std::move(name), std::move(misbehave), std::move(seen), std::move(seenUnderWine)};
}

NetworkFault silence(std::string name, std::string bytes, Seen seen,
                     std::vector<Seen> seenUnderWine = {}) {
  NetworkFault made = fault(std::move(name), answeringThenSilent(std::move(bytes)), std::move(seen),
                            std::move(seenUnderWine));
  made.receiveLimit = 1'000;
  return made;
}

void addFaultsBeforeTheAnswer(std::vector<NetworkFault>& all) {
  all.push_back(
      fault("ResetBeforeTheRequestIsRead",
            [](Peer& peer) {
              peer.waitForBytes();  // or the client may not have seen the connection at all
              peer.reset();
            },
            failed(12031), {failed(12030), failed(10054), shownAsEmptyHeaders()}));
  all.push_back(
      fault("ResetInPlaceOfAnAnswer", answeringThenReset(""), failed(12031), {failed(12030)}));
  all.push_back(
      fault("ClosedInPlaceOfAnAnswer", answering(""), failed(12030), {shownAsEmptyHeaders()}));
  all.push_back(silence("SilentInPlaceOfAnAnswer", "", failed(12002), {failed(12030)}));
}

void addFaultsInTheHeaders(std::vector<NetworkFault>& all) {
  const std::string start = "HTTP/1.1 200 OK\r\nContent-Ty";
  const Seen wholeLines = shownAlone(L"HTTP/1.1 200 OK\r\n\r\n");
  all.push_back(fault("ClosedInTheHeaders", answering(start), failed(12152), {wholeLines}));
  all.push_back(fault("ResetInTheHeaders", answeringThenReset(start), failed(12031), {wholeLines}));
  all.push_back(silence("SilentInTheHeaders", start, failed(12002), {wholeLines}));
  all.push_back(fault("NoHttp", answering("220 mail.example ESMTP\r\n\r\n"), failed(12152),
                      {shownAlone(L"HTTP/1.0 200 OK\r\n\r\n\r\n")}));
  all.push_back(fault("ManyProvisionalAnswers",
                      answering(repeated("HTTP/1.1 100 Continue\r\n\r\n", 500) + goodAnswer()),
                      passed()));
  all.push_back(fault("ALengthThatIsNoNumber",
                      answering(head("Content-Length: many\r\n") + goodBody()), failed(12152),
                      {passed()}));
  all.push_back(fault("DripByteByByte", drippingByteByByte(goodAnswer()), passed()));
}

void addFaultsInTheBody(std::vector<NetworkFault>& all) {
  const std::string full = head(length(goodBody().size()));
  all.push_back(fault("ClosedAfterTheHeaders", answering(full), shownEmpty()));
  all.push_back(fault("ResetAfterTheHeaders", answeringThenReset(full), shownEmpty()));
  all.push_back(silence("SilentAfterTheHeaders", full, shownEmpty()));
  all.push_back(fault("ClosedInTheBody", answering(full + firstHalf()), shown(L"<?xml")));
  all.push_back(fault("ResetInTheBody", answeringThenReset(full + firstHalf()), shown(L"<?xml"),
                      {shownEmpty()}));
  all.push_back(silence("SilentInTheBody", full + firstHalf(), shown(L"<?xml"), {shownEmpty()}));
  all.push_back(fault("ResetAfterTheBody", answeringThenReset(full + goodBody()), passed()));
  all.push_back(fault("FewerBytesThanTheLength",
                      answering(head(length(goodBody().size() + 100)) + goodBody()), passed()));
  all.push_back(fault("MoreBytesThanTheLength",
                      answering(head(length(goodBody().size() / 2)) + goodBody()), shown(L"<?xml"),
                      {passed()}));
  all.push_back(
      fault("AChunkSizeThatIsNone", answering(chunked("zz\r\n<b/>\r\n0\r\n\r\n")), shownEmpty()));
  all.push_back(fault("AChunkSizeBeyondAllNumbers",
                      answering(chunked("fffffffffffffffff\r\n<b/>\r\n0\r\n\r\n")), shownEmpty(),
                      {shown(L"<b/>")}));
  all.push_back(fault("AChunkLongerThanItsSize", answering(chunked("4\r\n<late/>\r\n0\r\n\r\n")),
                      shown(L"<lat")));
  all.push_back(
      fault("AChunkCutShort", answering(chunked("ffff\r\n" + firstHalf())), shown(L"<?xml")));
  all.push_back(
      fault("ZippedUnasked",
            answering(head("Content-Encoding: gzip\r\n" + length(zipped.size())) + zipped),
            shown(L"\x1f\ufffd\b")));
  all.push_back(fault("AnOldAnswer",
                      answering("HTTP/1.0 200 OK\r\nContent-Type: text/xml\r\n\r\n" + goodBody()),
                      passed()));
}

void addStatuses(std::vector<NetworkFault>& all) {
  const std::pair<std::string, std::string> bodies[] = {
      {"Xml", goodBody()}, {"Html", "<!DOCTYPE html><html><body>No<br></body></html>"}};
  for (const std::string code : {"401", "403", "407", "500", "503"}) {
    for (const auto& [type, body] : bodies) {
      const std::string kind = type == "Xml" ? "text/xml" : "text/html";
      all.push_back(fault("Status" + code + type,
                          answering("HTTP/1.1 " + code + " No\r\nContent-Type: " + kind + "\r\n" +
                                    length(body.size()) + "Connection: close\r\n\r\n" + body),
                          shown(L"HTTP/1.1 " + text::fromUtf8(code) + L" No\r\n",
                                L"\r\n\r\n" + text::fromUtf8(body.substr(0, 6)))));
    }
  }
}

/// The answer stands elsewhere.
void addRedirects(std::vector<NetworkFault>& all) {
  for (const std::string code : {"301", "302", "303", "307", "308"}) {
    const Seen itself = shown(L"HTTP/1.1 " + text::fromUtf8(code) + L" Elsewhere\r\n");
    all.push_back(fault("Redirect" + code, redirecting(code),
                        expectations().http.followsRedirects ? passed() : itself,
                        {code == "308" ? itself : passed()}));
  }
}

/// Answers that the client has to give up. WinINet does not: it has no limit for headers, for
/// provisional answers or for a body, so that there the submit would not return.
void addFaultsWithoutEnd(std::vector<NetworkFault>& all) {
  all.push_back(fault("HeadersWithoutEnd",
                      endlessly("HTTP/1.1 200 OK\r\n", repeated("X-Again: and again\r\n", 100)),
                      failed(12152)));
  all.push_back(fault("AHeaderWithoutEnd",
                      endlessly("HTTP/1.1 200 OK\r\nX-Again: ", std::string(5000, 'x')),
                      failed(12152)));
  all.push_back(fault("ProvisionalAnswersWithoutEnd",
                      endlessly("", repeated("HTTP/1.1 102 Processing\r\n\r\n", 100)),
                      failed(12152)));
  all.push_back(fault("ABodyWithoutEnd", endlessly(head(""), std::string(1'000'000, ' ')),
                      failed(12152, L"InternetReadFile")));
}

}  // namespace

Seen failed(std::uint32_t code, std::wstring_view step) {
  return {std::wstring(step) + L" call failed: ", L"  Dec: " + std::to_wstring(code) + L"\tHex: "};
}

Seen shown(std::wstring start, std::wstring part) {
  return {std::move(start), std::move(part)};
}

Seen passed() {
  return {{}, {}, false};
}

std::vector<Seen> NetworkFault::expected() const {
  return wineVersion() != 0 ? seenUnderWine : std::vector{seen};
}

std::string goodBody() {
  return success("");
}

std::string goodAnswer() {
  return head(length(goodBody().size())) + goodBody();
}

std::vector<NetworkFault> networkFaults() {
  std::vector<NetworkFault> all;
  addFaultsBeforeTheAnswer(all);
  addFaultsInTheHeaders(all);
  addFaultsInTheBody(all);
  addStatuses(all);
  addRedirects(all);
  if (expectations().http.limitsAnswers) addFaultsWithoutEnd(all);
  return all;
}

SubmitOutcome fileFlightPlan() {
  const FailureRecorder recorder;
  SubmitICAOFlightNotifRqs request;
  const auto stage = std::make_shared<ICAOFlightNotifStage>();
  stage->Aircraft(L"VHABC");
  stage->Depart(L"YSSY");
  stage->Destination(L"YMML");
  stage->Route(std::make_shared<ICAORoute>());
  request.Notification()->Add(stage);
  const auto response = request.submit();
  return {response->Error(), response->outcome(), response->ErrorText(), recorder.reports()};
}

struct SubmitsTo::Scope {
  Scope(Deployment there, std::uint32_t receiveLimit)
      : deployment(std::move(there)), limit(receiveLimit) {}

  FreshSettings settings;
  ScopedDeployment deployment;
  ShorterReceiveLimit limit;
};

SubmitsTo::SubmitsTo(const std::wstring& address, std::uint32_t receiveLimit,
                     const std::string& caFile) {
  Deployment deployment;
  deployment.connectTo = address;
  deployment.caFile = text::fromUtf8(caFile);
  scope_ = std::make_unique<Scope>(std::move(deployment), receiveLimit);
  NAIPSConfig config;
  config.Mode(1);
  config.UseProxy(caFile.empty());
  config.UserName(L"pilot1");
  config.Password(L"pw");
}

SubmitsTo::~SubmitsTo() = default;

}  // namespace ktpnaips::test
