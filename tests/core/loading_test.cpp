#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/response.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/failure_recorder.h"
#include "tests/support/fault.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

/// A response that remembers in which order it was set.
class Journal final : public AbstractResponse {
 public:
  explicit Journal(xml::Document document = {}) : document_(std::move(document)) {}

  void Payload(const xml::Node& value) override {
    entries.push_back(value ? L"Payload " + value.name() : L"Payload none");
  }
  void Error(bool value) override { entries.push_back(value ? L"Error true" : L"Error false"); }
  void ErrorText(std::wstring_view value) override {
    entries.push_back(L"ErrorText " + std::wstring(value));
  }
  xml::Document ResponseDoc() const override { return document_; }

  using AbstractResponse::Error;
  using AbstractResponse::ErrorText;
  using AbstractResponse::Payload;
  using AbstractResponse::ResponseDoc;

  std::vector<std::wstring> entries;

 private:
  xml::Document document_;
};

using Entries = std::vector<std::wstring>;

Entries verdictOn(const std::string& document) {
  Journal journal(test::parsed(document));
  Utils::loadResponse(journal);
  return journal.entries;
}

/// What a response of its own kind holds after loading.
class CountingResponse final : public ResponseBase {
 public:
  int extractions = 0;

 private:
  void extractData() override { ++extractions; }
};

std::wstring errorText(const std::string& document) {
  CountingResponse response;
  test::load(response, document);
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.extractions, 0);
  return response.ErrorText();
}

std::string faultAnswer(std::string_view children) {
  return test::answer("<s:Fault>" + std::string(children) + "</s:Fault>");
}

TEST(BareResponse, KeepsNothing) {
  AbstractResponse response;
  response.Error(true);
  response.ErrorText(L"text");
  const xml::Document document = test::parsed("<a/>");
  response.Payload(document.documentElement());
  response.ResponseDoc(document);
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"");
  EXPECT_FALSE(response.Payload());
  EXPECT_FALSE(response.ResponseDoc());
}

TEST(Response, ReadsAsFailedUntilItIsAnswered) {
  const CountingResponse response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_FALSE(response.Payload());
  EXPECT_FALSE(response.ResponseDoc());
}

TEST(Response, StoresWhatIsSetOnIt) {
  CountingResponse response;
  const xml::Document document = test::parsed("<a/>");
  response.Error(false);
  response.ErrorText(L"text");
  response.Payload(document.documentElement());
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"text");
  EXPECT_EQ(response.Payload(), document.documentElement());
}

TEST(Response, IsASuccessWithThePayloadOfASuccessfulAnswer) {
  CountingResponse response;
  test::load(response, test::success("<n:name>x</n:name>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"");
  EXPECT_EQ(response.Payload().name(), L"n:answer");
  EXPECT_EQ(response.ResponseDoc().documentElement().name(), L"s:Envelope");
  EXPECT_EQ(response.extractions, 1);
}

TEST(Response, ExtractsAgainFromASecondAnswer) {
  CountingResponse response;
  test::load(response, test::success(""));
  test::load(response, test::answer("<n:answer status=\"X\"/>"));
  EXPECT_EQ(response.extractions, 1);
  EXPECT_TRUE(response.Error());
  test::load(response, test::success(""));
  EXPECT_EQ(response.extractions, 2);
  EXPECT_FALSE(response.Error());
}

TEST(Loading, SetsPayloadThenErrorThenErrorText) {
  EXPECT_EQ(verdictOn(test::success("")),
            (Entries{L"Payload n:answer", L"Error false", L"ErrorText "}));
}

TEST(Loading, TakesNoDocumentForNoResponse) {
  Journal journal;
  Utils::loadResponse(journal);
  EXPECT_EQ(journal.entries,
            (Entries{L"Payload none", L"Error true", L"ErrorText No response set"}));
}

TEST(Loading, TakesAnAnswerWithoutASoapBodyForNoSoapResponse) {
  EXPECT_EQ(verdictOn("<html><head><title>Sorry</title></head><body>line 1\nline 2</body></html>"),
            (Entries{L"Payload none", L"Error true",
                     L"ErrorText SOAP Fault: Not a SOAP response\r\nSorryline 1\r\nline 2"}));
}

TEST(Loading, TakesASoap12EnvelopeForNoSoapResponse) {
  EXPECT_EQ(errorText("<e:Envelope xmlns:e=\"http://www.w3.org/2003/05/soap-envelope\"><e:Body>"
                      "<a status=\"SUCCESS\">text</a></e:Body></e:Envelope>"),
            L"SOAP Fault: Not a SOAP response\r\ntext");
}

TEST(Loading, FindsTheBodyUnderAnyPrefixAndWhereverItStands) {
  EXPECT_EQ(verdictOn("<x><Body xmlns=\"http://schemas.xmlsoap.org/soap/envelope/\">"
                      "<a status=\"SUCCESS\"/></Body></x>"),
            (Entries{L"Payload a", L"Error false", L"ErrorText "}));
  EXPECT_EQ(verdictOn("<b:Body xmlns:b=\"http://schemas.xmlsoap.org/soap/envelope/\">"
                      "<a status=\"SUCCESS\"/></b:Body>"),
            (Entries{L"Payload a", L"Error false", L"ErrorText "}));
}

TEST(Loading, PassesOverASoapHeader) {
  EXPECT_EQ(verdictOn("<s:Envelope xmlns:s=\"http://schemas.xmlsoap.org/soap/envelope/\">"
                      "<s:Header><a status=\"X\"/></s:Header><s:Body><b status=\"SUCCESS\"/>"
                      "</s:Body></s:Envelope>"),
            (Entries{L"Payload b", L"Error false", L"ErrorText "}));
}

TEST(Loading, TakesTheFirstChildOfTheBodyForThePayload) {
  EXPECT_EQ(verdictOn(test::answer("<a status=\"SUCCESS\"/><b status=\"FAILURE\"/>")),
            (Entries{L"Payload a", L"Error false", L"ErrorText "}));
}

TEST(Loading, DoesNotAskForTheNamespaceOfThePayload) {
  EXPECT_EQ(verdictOn(test::answer("<o:a xmlns:o=\"urn:other\" status=\"SUCCESS\"/>"))[1],
            L"Error false");
}

TEST(Loading, TakesAnyStatusButSuccessForANaipsError) {
  EXPECT_EQ(errorText(test::answer("<n:a status=\"FAILURE\"/>")), L"NAIPS Error: FAILURE\r\n");
  EXPECT_EQ(errorText(test::answer("<n:a status=\"success\"/>")), L"NAIPS Error: success\r\n");
  EXPECT_EQ(errorText(test::answer("<n:a status=\" SUCCESS\"/>")), L"NAIPS Error:  SUCCESS\r\n");
  EXPECT_EQ(errorText(test::answer("<n:a status=\"SUCCESS \"/>")), L"NAIPS Error: SUCCESS \r\n");
  EXPECT_EQ(errorText(test::answer("<n:a status=\"\"/>")), L"NAIPS Error: \r\n");
}

TEST(Loading, AddsTheInfoOfANaipsError) {
  EXPECT_EQ(errorText(test::answer("<n:a status=\"FAILURE\"><n:info>Bad password</n:info></n:a>")),
            L"NAIPS Error: FAILURE\r\nInfo: Bad password\r\n");
}

TEST(Loading, AddsAnEmptyInfo) {
  EXPECT_EQ(errorText(test::answer("<n:a status=\"FAILURE\"><n:info/></n:a>")),
            L"NAIPS Error: FAILURE\r\nInfo: \r\n");
}

TEST(Loading, SearchesTheWholeDocumentForTheFirstInfo) {
  EXPECT_EQ(errorText(test::answer("<n:a status=\"FAILURE\"><n:b><n:info>deep</n:info></n:b>"
                                   "<n:info>second</n:info></n:a>")),
            L"NAIPS Error: FAILURE\r\nInfo: deep\r\n");
  EXPECT_EQ(errorText(test::answer("<n:a status=\"FAILURE\"/><n:info>beside</n:info>")),
            L"NAIPS Error: FAILURE\r\nInfo: beside\r\n");
}

TEST(Loading, IgnoresAnInfoOutsideTheSchemaNamespace) {
  EXPECT_EQ(errorText(test::answer("<n:a status=\"FAILURE\"><info>bare</info></n:a>")),
            L"NAIPS Error: FAILURE\r\n");
}

TEST(Loading, MakesTheLineEndsOfAnInfoCrLf) {
  EXPECT_EQ(errorText(test::answer("<n:a status=\"FAILURE\"><n:info>a\nb\r\nc&#13;&#10;d&#13;e"
                                   "</n:info></n:a>")),
            L"NAIPS Error: FAILURE\r\nInfo: a\r\nb\r\nc\r\nd\re\r\n");
}

TEST(Loading, IgnoresAnInfoOfASuccess) {
  EXPECT_EQ(verdictOn(test::success("<n:info>well</n:info>")),
            (Entries{L"Payload n:answer", L"Error false", L"ErrorText "}));
}

TEST(Loading, WritesALineForEachChildOfAFaultInAFixedOrder) {
  EXPECT_EQ(
      verdictOn(faultAnswer("<detail><x>d1</x><y>d2</y></detail><faultactor>actor</faultactor>"
                            "<faultstring>string</faultstring><faultcode>s:Client</faultcode>")),
      (Entries{L"Payload s:Fault", L"Error true",
               L"ErrorText SOAP Fault Code: s:Client\r\nSOAP Fault String: string\r\n"
               L"Actor: actor\r\nDetail: d1d2\r\n"}));
}

TEST(Loading, LeavesOutTheLinesOfAbsentChildrenOfAFault) {
  const struct {
    std::string child;
    std::wstring line;
  } parts[] = {{"<faultcode>c</faultcode>", L"SOAP Fault Code: c\r\n"},
               {"<faultstring>s</faultstring>", L"SOAP Fault String: s\r\n"},
               {"<faultactor>a</faultactor>", L"Actor: a\r\n"},
               {"<detail>d</detail>", L"Detail: d\r\n"}};
  for (unsigned subset = 0; subset < 16; ++subset) {
    std::string children;
    std::wstring lines;
    for (unsigned i = 0; i < 4; ++i) {
      if ((subset >> i & 1U) == 0) continue;
      children += parts[i].child;
      lines += parts[i].line;
    }
    EXPECT_EQ(errorText(faultAnswer(children)), lines) << subset;
  }
}

TEST(Loading, WritesALineForAnEmptyChildOfAFault) {
  EXPECT_EQ(errorText(faultAnswer("<faultcode/>")), L"SOAP Fault Code: \r\n");
}

TEST(Loading, FindsTheChildrenOfAFaultOnlyUnderUnqualifiedNames) {
  EXPECT_EQ(errorText(faultAnswer("<s:faultcode>c</s:faultcode><n:faultstring>f</n:faultstring>"
                                  "<faultactor xmlns=\"urn:other\">a</faultactor>")),
            L"");
}

TEST(Loading, FindsOnlyDirectChildrenOfAFault) {
  EXPECT_EQ(errorText(faultAnswer("<detail><faultcode>c</faultcode></detail>")), L"Detail: c\r\n");
}

TEST(Loading, TakesTheFirstOfRepeatedChildrenOfAFault) {
  EXPECT_EQ(errorText(faultAnswer("<faultcode>1</faultcode><faultcode>2</faultcode>")),
            L"SOAP Fault Code: 1\r\n");
}

TEST(Loading, MakesTheLineEndsOfAFaultCrLf) {
  EXPECT_EQ(errorText(faultAnswer("<faultstring>a\nb</faultstring>")),
            L"SOAP Fault String: a\r\nb\r\n");
}

TEST(Loading, FindsAFaultBehindAPayload) {
  EXPECT_EQ(verdictOn(test::answer("<n:a status=\"SUCCESS\"/>"
                                   "<s:Fault><faultcode>c</faultcode></s:Fault>")),
            (Entries{L"Payload n:a", L"Error true", L"ErrorText SOAP Fault Code: c\r\n"}));
}

TEST(Loading, IgnoresAFaultInsideThePayloadOrOutsideTheSoapNamespace) {
  EXPECT_EQ(verdictOn(test::success("<s:Fault><faultcode>c</faultcode></s:Fault>"))[1],
            L"Error false");
  EXPECT_EQ(verdictOn(test::answer("<Fault status=\"SUCCESS\"/>"))[1], L"Error false");
}

TEST(Loading, ReadsAPrettyPrintedAnswerLikeACompactOne) {
  CountingResponse response;
  test::load(response, test::answer("\r\n    <n:answer status=\"SUCCESS\">\n\t<n:name>x</n:name>"
                                    "\n  </n:answer>\n  "));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Payload().name(), L"n:answer");
  EXPECT_EQ(response.Payload().firstChild().name(), L"n:name");
  EXPECT_EQ(errorText(test::answer("\n <s:Fault>\n <faultcode>c</faultcode>\n "
                                   "<detail>\n <x>1</x>\n <x>2</x>\n</detail>\n</s:Fault>\n")),
            L"SOAP Fault Code: c\r\nDetail: 12\r\n");
  EXPECT_EQ(errorText("<html>\n <p>a</p>\n <p>b</p>\n</html>"),
            L"SOAP Fault: Not a SOAP response\r\nab");
}

class UnloadableAnswer : public testing::Test {
 protected:
  /// What is reported when a response is given the answer, which must set nothing.
  static test::Reports reportsOn(const std::string& document) {
    const test::FailureRecorder recorder;
    CountingResponse response;
    test::load(response, document);
    EXPECT_TRUE(response.Error());
    EXPECT_EQ(response.ErrorText(), L"No response set");
    EXPECT_FALSE(response.Payload());
    EXPECT_EQ(response.extractions, 0);
    return recorder.reports();
  }

  const test::Reports noStatus{
      L"Error 94 (Invalid use of Null) in procedure loadResponse of Module Utils"};
  const test::Reports noElement{
      L"Error 13 (Type mismatch) in procedure loadResponse of Module Utils"};
  const test::Reports noPayload{
      L"Error 91 (Object variable or With block variable not set) in procedure loadResponse of "
      L"Module Utils"};
};

TEST_F(UnloadableAnswer, IsOneWhosePayloadHasNoStatus) {
  EXPECT_EQ(reportsOn(test::answer("<n:a/>")), noStatus);
  EXPECT_EQ(reportsOn(test::answer("<n:a Status=\"SUCCESS\"/>")), noStatus);
  EXPECT_EQ(reportsOn(test::answer("<n:a n:status=\"SUCCESS\"/>")), noStatus);
}

TEST_F(UnloadableAnswer, IsOneWhosePayloadIsNoElement) {
  EXPECT_EQ(reportsOn(test::answer("text")), noElement);
  EXPECT_EQ(reportsOn(test::answer("<!-- comment --><n:a status=\"SUCCESS\"/>")), noElement);
  EXPECT_EQ(reportsOn(test::answer("<?pi x?><n:a status=\"SUCCESS\"/>")), noElement);
}

TEST_F(UnloadableAnswer, IsOneWhoseBodyIsEmpty) {
  EXPECT_EQ(reportsOn(test::answer("")), noPayload);
  EXPECT_EQ(reportsOn(test::answer("  \n ")), noPayload);
}

TEST(Loading, TakesAFaultBehindTextThatIsNoElement) {
  EXPECT_EQ(verdictOn(test::answer("text<s:Fault><faultcode>c</faultcode></s:Fault>")),
            (Entries{L"Payload #text", L"Error true", L"ErrorText SOAP Fault Code: c\r\n"}));
}

TEST(AnswerTexts, AreReadOnlyWhenPresent) {
  CountingResponse response;
  test::load(response, test::success("<n:a>text</n:a><n:b/>"));
  std::wstring a = L"old";
  std::wstring b = L"old";
  std::wstring c = L"old";
  readText(response.Payload(), "naips:a", a);
  readText(response.Payload(), "naips:b", b);
  readText(response.Payload(), "naips:c", c);
  EXPECT_EQ(a, L"text");
  EXPECT_EQ(b, L"");
  EXPECT_EQ(c, L"old");
}

TEST(AnswerTexts, FaultWhenTheyAreNeededAndAbsent) {
  CountingResponse response;
  test::load(response, test::success("<n:a id=\"7\">text</n:a>"));
  const xml::Node payload = response.Payload();
  EXPECT_EQ(neededText(payload, "naips:a"), L"text");
  EXPECT_EQ(neededAttribute(payload.firstChild(), L"id"), L"7");
  EXPECT_EQ(test::faultOf([&] { (void)neededText(payload, "naips:b"); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)neededAttribute(payload, L"id"); }), fault::invalidUseOfNull);
}

TEST(AnswerTexts, MeanTrueWhenTheyAreOneOrTrue) {
  EXPECT_TRUE(isTrue(L"true"));
  EXPECT_TRUE(isTrue(L"1"));
  for (const wchar_t* text : {L"", L"True", L"TRUE", L"yes", L"0", L" 1", L"true "}) {
    EXPECT_FALSE(isTrue(text));
  }
}

}  // namespace
}  // namespace ktpnaips
