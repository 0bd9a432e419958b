#include <gmock/gmock.h>
#include <libxml/parser.h>

#include <chrono>

#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

bool isXml(const std::string& text) {
  xmlDoc* const document =
      xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                    XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_NONET | XML_PARSE_HUGE);
  xmlFreeDoc(document);
  return document != nullptr;
}

std::size_t declaredLength(const Reply& reply) {
  const std::string name = "Content-Length: ";
  return std::stoul(reply.bytes.substr(reply.bytes.find(name) + name.size()));
}

class Fault : public ServiceTest {
 protected:
  Reply under(std::string_view fault,
              std::chrono::milliseconds patience = std::chrono::seconds(30)) {
    service().setFault(fault);
    const Reply reply = roundTrip(service().port(), bytes, {}, patience);
    EXPECT_EQ(service().requestCount(), 1U);
    EXPECT_EQ(service().requests().back().body, login);
    return reply;
  }

  const std::string login = envelope(request("authenticate-rqs", ""));
  const std::string bytes = httpRequest("POST", "/naips/account-service", login);
};

TEST_F(Fault, CloseAfterRequestSendsNothing) {
  const Reply reply = under("close-after-request");
  EXPECT_EQ(reply.bytes, "");
  EXPECT_FALSE(reply.reset);
  EXPECT_FALSE(reply.timedOut);
}

TEST_F(Fault, ResetAfterRequestAbortsTheConnection) {
  const Reply reply = under("reset-after-request");
  EXPECT_EQ(reply.bytes, "");
  EXPECT_TRUE(reply.reset);
}

TEST_F(Fault, TruncateBodyBreaksOffInsideTheXml) {
  const Reply reply = under("truncate-body");
  EXPECT_GT(reply.body().size(), 100U);
  EXPECT_LT(reply.body().size(), declaredLength(reply));
  EXPECT_FALSE(isXml(reply.body()));
}

TEST_F(Fault, ShortBodySendsAWholeDocumentAndTooFewBytes) {
  const Reply reply = under("short-body");
  EXPECT_LT(reply.body().size(), declaredLength(reply));
  EXPECT_TRUE(isXml(reply.body()));
}

TEST_F(Fault, StallHeadersFallsSilentBeforeTheirEnd) {
  const Reply reply = under("stall-headers", std::chrono::milliseconds(300));
  EXPECT_TRUE(reply.timedOut);
  EXPECT_THAT(reply.bytes, HasSubstr("HTTP/1.1 200 OK\r\n"));
  EXPECT_THAT(reply.bytes, Not(HasSubstr("\r\n\r\n")));
}

TEST_F(Fault, StallBodyFallsSilentInsideTheXml) {
  const Reply reply = under("stall-body", std::chrono::milliseconds(300));
  EXPECT_TRUE(reply.timedOut);
  EXPECT_LT(reply.body().size(), declaredLength(reply));
  EXPECT_FALSE(isXml(reply.body()));
}

TEST_F(Fault, Http500IsASoapFault) {
  const Reply reply = under("http-500");
  EXPECT_EQ(reply.status(), 500);
  EXPECT_THAT(reply.body(), HasSubstr("<faultstring>The service is out of order</faultstring>"));
}

TEST_F(Fault, Html200IsAWebPage) {
  const Reply reply = under("html-200");
  EXPECT_EQ(reply.status(), 200);
  EXPECT_THAT(reply.head(), HasSubstr("Content-Type: text/html"));
}

TEST_F(Fault, NotXmlDeclaresXmlAndSendsNone) {
  const Reply reply = under("not-xml");
  EXPECT_EQ(reply.status(), 200);
  EXPECT_THAT(reply.head(), HasSubstr("text/xml"));
  EXPECT_FALSE(isXml(reply.body()));
}

TEST_F(Fault, NoSoapIsXmlWithoutAnEnvelope) {
  const Reply reply = under("no-soap");
  EXPECT_TRUE(isXml(reply.body()));
  EXPECT_THAT(reply.body(), Not(HasSubstr("Envelope")));
}

TEST_F(Fault, NoStatusIsAPayloadWithoutThatAttribute) {
  const Reply reply = under("no-status");
  EXPECT_TRUE(isXml(reply.body()));
  EXPECT_THAT(reply.body(), Not(HasSubstr("status")));
}

TEST_F(Fault, EmptyBodyHasLengthZero) {
  const Reply reply = under("empty-body");
  EXPECT_EQ(reply.status(), 200);
  EXPECT_THAT(reply.head(), HasSubstr("\r\nContent-Length: 0\r\n"));
}

TEST_F(Fault, DoctypeStandsBeforeAGoodAnswer) {
  const Reply reply = under("doctype");
  EXPECT_TRUE(isXml(reply.body()));
  EXPECT_THAT(reply.body(), HasSubstr("<!DOCTYPE Envelope ["));
  EXPECT_THAT(reply.body(), HasSubstr("status=\"SUCCESS\""));
}

TEST_F(Fault, BadUtf8IsNoXml) {
  const Reply reply = under("bad-utf8");
  EXPECT_THAT(reply.body(), HasSubstr("\xFF"));
  EXPECT_FALSE(isXml(reply.body()));
}

TEST_F(Fault, ManyAttributesAreAMillion) {
  const Reply reply = under("many-attributes");
  EXPECT_THAT(reply.body(), HasSubstr(" a999999=\"\">"));
}

TEST_F(Fault, RedirectNamesAnotherPath) {
  const Reply reply = under("redirect");
  EXPECT_EQ(reply.status(), 302);
  EXPECT_THAT(reply.head(), HasSubstr("\r\nLocation: /moved/briefing-service\r\n"));
}

TEST_F(Fault, RedirectNamesAPathWhereNothingIs) {
  service().setFault("redirect");
  const std::string moved = httpRequest("POST", "/moved/briefing-service", login);
  EXPECT_EQ(roundTrip(service().port(), moved).status(), 404);
}

TEST_F(Fault, BigTextIsGoodXmlOfThirtyMegabytes) {
  const Reply reply = under("big-text");
  EXPECT_GT(reply.body().size(), 30U * 1024 * 1024);
  EXPECT_TRUE(isXml(reply.body()));
}

TEST_F(Fault, EndsWithAnEmptyName) {
  service().setFault("empty-body");
  service().setFault("");
  EXPECT_THAT(answer("/account-service", request("authenticate-rqs", "")), HasSubstr("SUCCESS"));
}

TEST_F(Fault, CanBeGivenWhenTheServiceStarts) {
  options.fault = "redirect";
  EXPECT_EQ(post("/naips/account-service", login).status(), 302);
}

TEST_F(Fault, WorksOverTlsToo) {
  service().setFault("truncate-body");
  const Reply truncated = postTls("/naips/account-service", login);
  EXPECT_LT(truncated.body().size(), declaredLength(truncated));
  service().setFault("reset-after-request");
  EXPECT_TRUE(postTls("/naips/account-service", login).reset);
}

TEST_F(Fault, OfAnUnknownNameIsRefused) {
  EXPECT_THROW(service().setFault("gremlins"), std::invalid_argument);
  EXPECT_EQ(sim::faultNames().size(), 17U);
}

}  // namespace
}  // namespace simtest
