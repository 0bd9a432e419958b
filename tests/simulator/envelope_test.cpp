#include <gmock/gmock.h>

#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::HasSubstr;

constexpr std::string_view briefing = "/naips/briefing-service";

class Envelope : public ServiceTest {
 protected:
  std::string faultOf(std::string_view document) {
    const Reply reply = post(briefing, document);
    EXPECT_EQ(reply.status(), 200);
    EXPECT_THAT(reply.body(), HasSubstr("<soap:Fault><faultcode>soap:"));
    return reply.body();
  }
};

TEST_F(Envelope, FaultsWithLineAndReasonWhenItIsNotWellFormed) {
  EXPECT_THAT(faultOf("<a>\n<b>\n</a>"),
              HasSubstr("The request cannot be read: line 3: Opening and ending tag mismatch"));
  EXPECT_THAT(faultOf(""), HasSubstr("The request cannot be read: "));
}

TEST_F(Envelope, FaultsOnADocumentTypeDeclaration) {
  EXPECT_THAT(faultOf("<!DOCTYPE a [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><a>&x;</a>"),
              HasSubstr("a document type declaration is not allowed"));
}

TEST_F(Envelope, FaultsWhenItIsNoSoapEnvelope) {
  EXPECT_THAT(faultOf("<hello/>"), HasSubstr("The document element is hello, not a SOAP Envelope"));
}

TEST_F(Envelope, FaultsOnAnotherSoapVersion) {
  const std::string text = faultOf(
      "<e:Envelope xmlns:e='http://www.w3.org/2003/05/soap-envelope'><e:Body/></e:Envelope>");
  EXPECT_THAT(text, HasSubstr("<faultcode>soap:VersionMismatch</faultcode>"));
}

TEST_F(Envelope, FaultsWithoutABody) {
  EXPECT_THAT(faultOf("<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'><e:Header/>"
                      "</e:Envelope>"),
              HasSubstr("needs one Body"));
}

TEST_F(Envelope, FaultsOnAnEmptyBody) {
  EXPECT_THAT(faultOf(envelope("")), HasSubstr("The SOAP body holds no request element"));
}

TEST_F(Envelope, FaultsOnTwoRequestsAtOnce) {
  EXPECT_THAT(faultOf(envelope("<ndd:a/><ndd:b/>")),
              HasSubstr("The SOAP body holds 2 elements instead of one request element"));
}

TEST_F(Envelope, FaultsOnAPeriodOrDurationWithoutARequestAroundIt) {
  EXPECT_THAT(faultOf(envelope("<ndd:period><ndd:from>2026-11-20T06:00:00Z</ndd:from>"
                               "<ndd:till>2026-11-20T09:00:00Z</ndd:till></ndd:period>")),
              HasSubstr("<faultstring>period is no request; /briefing-service takes: "));
  EXPECT_THAT(faultOf(envelope("<ndd:period/>")), HasSubstr("loc-brief-rqs, met-brief-rqs"));
  EXPECT_THAT(faultOf(envelope("<ndd:duration>PT06H</ndd:duration>")),
              HasSubstr("duration is no request"));
}

TEST_F(Envelope, FaultsOnAnOperationOfAnotherService) {
  EXPECT_THAT(faultOf(envelope(request("authenticate-rqs", ""))),
              HasSubstr("authenticate-rqs belongs to /account-service, not to /briefing-service"));
}

TEST_F(Envelope, FaultsOnAnotherNamespaceNamingBoth) {
  EXPECT_THAT(
      faultOf(envelope(request("met-brief-rqs", ""), "urn:other")),
      HasSubstr("in the namespace &quot;urn:other&quot; instead of &quot;http://naips.example/"));
}

TEST_F(Envelope, IsReadAndAnsweredInTheNamespaceOfTheOptions) {
  options.schemaNamespace = "urn:x:a&b";
  const Reply reply =
      post("/account-service", envelope(request("authenticate-rqs", ""), "urn:x:a&amp;b"));
  EXPECT_THAT(reply.body(), HasSubstr("xmlns:naips=\"urn:x:a&amp;b\" status=\"SUCCESS\""));
}

TEST_F(Envelope, MayHaveAHeader) {
  const std::string document =
      "<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'><e:Header/><e:Body>"
      "<authenticate-rqs xmlns='http://naips.example/naips/xsd' source='x' requestor='DEMO'"
      " password='demo-pilot'/></e:Body></e:Envelope>";
  EXPECT_THAT(post("/account-service", document).body(), HasSubstr("status=\"SUCCESS\""));
}

}  // namespace
}  // namespace simtest
