#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/notification/filing.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/network_faults.h"
#include "tests/support/raw_server.h"

namespace ktpnaips {
namespace {

/// Windows has no bound of ours.
TEST(Outcome, OfAnAnswerOfTooManyNodesSaysSoInPlaceOfShowingIt) {
  std::string body = "<r>";
  for (int i = 0; i < 4'200'000; ++i) body += "<a/>";
  body += "</r>";
  const test::RawServer server([&](test::Peer& peer) {
    peer.readRequest();
    peer.write("HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: " +
               std::to_string(body.size()) + "\r\n\r\n" + body);
  });
  const test::SubmitsTo there(server.address(), 20'000);
  const auto response = AuthenticateRqs().submit();
  EXPECT_TRUE(response->Error());
  EXPECT_EQ(response->outcome(), Outcome::unreadable);
  EXPECT_EQ(response->errorCode(), 12152U);
  EXPECT_EQ(response->reason(),
            L"SOAP Fault: Unrecognised response.  Details below.\r\n"
            L"InternetReadFile call failed: The answer cannot be read (the document has more than "
            L"4 million nodes).\r\n  Dec: 12152\tHex: 2F78\r\n");
  EXPECT_EQ(SubmitSARTimeNotifRqs().submit()->outcome(), Outcome::inDoubt);
}

}  // namespace
}  // namespace ktpnaips
