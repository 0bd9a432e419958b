#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_refusal.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "tests/support/platform_expectations.h"
#include "tests/support/repeated.h"

namespace ktpnaips {
namespace {

using test::repeated;
using xml::Document;
using xml::ParseFailure;

ParseFailure failureOf(const std::string& text) {
  ParseFailure failure;
  EXPECT_FALSE(Document::parse(text, &failure)) << text.substr(0, 200);
  EXPECT_FALSE(Document::parse(text)) << text.substr(0, 200);
  EXPECT_FALSE(failure.reason.empty()) << text.substr(0, 200);
  return failure;
}

void expectText(const std::string& document, std::wstring_view text) {
  ParseFailure failure;
  const Document parsed = Document::parse(document, &failure);
  ASSERT_TRUE(parsed) << document.substr(0, 200);
  EXPECT_EQ(parsed.documentElement().text(), text) << document.substr(0, 200);
}

/// ASCII text as UTF-16 with a byte order mark.
std::string utf16(std::string_view text, bool bigEndian) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : text) {
    if (bigEndian) bytes += '\0';
    bytes += c;
    if (!bigEndian) bytes += '\0';
  }
  return bytes;
}

TEST(XmlParsing, TakesADeclarationAByteOrderMarkAndLeadingLines) {
  expectText("<?xml version=\"1.0\"?><a>x</a>", L"x");
  expectText("<?xml version='1.0' encoding='utf-8' standalone='yes'?>\r\n<a>x</a>\r\n", L"x");
  expectText("\xEF\xBB\xBF<a>x</a>", L"x");
  expectText("\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>x</a>", L"x");
  expectText(" \r\n\t<a>x</a> \n", L"x");
  expectText("<!-- c --><?pi d?><a>x</a><!-- c -->", L"x");
}

TEST(XmlParsing, RefusesWhatIsNotWellFormed) {
  for (const char* text : {"",
                           " ",
                           "text",
                           "<",
                           "<a",
                           "<a>",
                           "<a></b>",
                           "<a/><b/>",
                           "<a/>text",
                           "x<a/>",
                           "<a b/>",
                           "<a b=c/>",
                           "<a b='1' b='2'/>",
                           "<a>&unknown;</a>",
                           "<a>&</a>",
                           "<a><</a>",
                           "<a>]]></a>",
                           "<a b='<'/>",
                           "<a><b></a></b>",
                           "<a><!-- -- --></a>",
                           " <?xml version='1.0'?><a/>",
                           "<a>\x01</a>",
                           "<a>&#1;</a>",
                           "<a>&#xFFFE;</a>",
                           "<a>&#xD800;</a>",
                           "<a>&#0;</a>",
                           "HTTP/1.1 500 Error\r\n\r\n<a/>"}) {
    failureOf(text);
  }
  failureOf(std::string("<a>\0</a>", 8));
  failureOf(std::string("<a/>\0", 5));
}

TEST(XmlParsing, RefusesAPrefixThatIsNotDeclaredWhereTheDomDoes) {
  for (const char* text : {"<p:a/>", "<a p:b=''/>"}) {
    EXPECT_NE(bool(Document::parse(text)), test::expectations().refusesUndeclaredPrefixes) << text;
  }
}

TEST(XmlParsing, RefusesATextThatBreaksOffAnywhere) {
  const std::string whole = "<?xml version=\"1.0\"?><a b=\"c\"><!-- d --><e>f&amp;</e></a>";
  for (std::size_t length = 0; length < whole.size(); ++length) {
    failureOf(whole.substr(0, length));
  }
}

TEST(XmlParsing, SaysTheLineTheColumnAndTheReason) {
  const ParseFailure failure = failureOf("<a>\n<b>\n</c></a>");
  if (test::expectations().tellsWhereParsingStopped) {
    EXPECT_EQ(failure.line, 3);
    EXPECT_GT(failure.column, 0);
  } else {
    EXPECT_EQ(failure.line, 0);
    EXPECT_EQ(failure.column, 0);
  }
}

TEST(XmlParsing, SaysNothingAboutASuccess) {
  ParseFailure failure;
  EXPECT_TRUE(Document::parse("<a/>", &failure));
  EXPECT_EQ(failure.line, 0);
  EXPECT_EQ(failure.column, 0);
  EXPECT_EQ(failure.reason, L"");
}

TEST(XmlParsing, ReadsTheEncodingThatATextDeclaresWhereTheDomKnowsIt) {
  const std::string latin = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9\xDF</a>";
  if (!test::expectations().knowsOtherEncodings) {
    failureOf(latin);
    return;
  }
  expectText(latin, L"\u00e9\u00df");
  expectText(utf16("<?xml version=\"1.0\" encoding=\"UTF-16\"?><a>x</a>", false), L"x");
  expectText(utf16("<a>x</a>", true), L"x");
}

TEST(XmlParsing, RefusesBytesThatAreNotUtf8) {
  for (const char* bytes : {"\x80", "\xFF", "\xE9", "\xC3", "\xE2\x82", "\xF0\x9F\x9B", "\xC0\xAF",
                            "\xC1\x81", "\xE0\x80\xAF", "\xF0\x80\x80\xAF", "\xED\xA0\x80",
                            "\xF4\x90\x80\x80", "\xEF\xBF\xBE", "\xF8\x88\x80\x80\x80"}) {
    const std::string bad(bytes);
    failureOf("<a>" + bad + "</a>");
    failureOf("<a>text " + bad + " text</a>");
    failureOf("<a b='" + bad + "'/>");
    failureOf("<a><!-- " + bad + " --></a>");
    failureOf("<a><![CDATA[" + bad + "]]></a>");
    failureOf("<?xml version='1.0' encoding='UTF-8'?><a>" + bad + "</a>");
  }
}

TEST(XmlParsing, RefusesAnEncodingThatNobodyKnowsWhereTheDomKnowsSome) {
  const std::string unknown = "<?xml version='1.0' encoding='x-unknown-encoding'?><a/>";
  if (test::expectations().knowsOtherEncodings) {
    failureOf(unknown);
  } else {
    EXPECT_TRUE(Document::parse(unknown));
  }
}

TEST(XmlParsing, RefusesADocumentTypeDeclaration) {
  for (const char* text :
       {"<!DOCTYPE a><a/>", "<!DOCTYPE a SYSTEM 'http://127.0.0.1:1/x.dtd'><a/>",
        "<?xml version='1.0'?>\n<!-- c -->\n<?pi d?>\n<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>",
        "\xEF\xBB\xBF<!DOCTYPE a><a/>", " \r\n<!DOCTYPE a><a/>", "<!-- > --><!DOCTYPE a><a/>"}) {
    EXPECT_EQ(failureOf(text).reason, xml::doctypeRefused) << text;
  }
}

TEST(XmlParsing, RefusesADocumentTypeDeclarationInAnyEncoding) {
  for (const bool bigEndian : {false, true}) {
    failureOf(utf16("<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>", bigEndian));
  }
  failureOf("<?xml version='1.0' encoding='ISO-8859-1'?><!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>");
}

TEST(XmlParsing, TakesTextThatOnlyLooksLikeADocumentTypeDeclaration) {
  expectText("<!-- <!DOCTYPE a> --><a>x</a>", L"x");
  expectText("<a><![CDATA[<!DOCTYPE a>]]></a>", L"<!DOCTYPE a>");
  expectText("<a>&lt;!DOCTYPE a></a>", L"<!DOCTYPE a>");
}

TEST(XmlParsing, TakesAThousandAttributesAndRefusesMore) {
  std::string attributes;
  for (int i = 1; i <= 1000; ++i) attributes += " attribute" + std::to_string(i) + "='1'";
  const Document document = Document::parse("<a" + attributes + "/>");
  ASSERT_TRUE(document);
  EXPECT_EQ(document.documentElement().attribute(L"attribute1000"), L"1");
  failureOf("<a" + attributes + " more='1'/>");
  failureOf("<r><x/><a" + attributes + " more=\"1\">text</a></r>");
}

TEST(XmlParsing, RefusesAMillionAttributesAtOnce) {
  std::string text = "<a";
  for (int i = 0; i < 1'000'000; ++i) text += " a" + std::to_string(i) + "=''";
  failureOf(text + "/>");
}

TEST(XmlParsing, TakesAMillionAttributesOfAsManyElements) {
  const Document document = Document::parse("<r>" + repeated("<a b='1'/>", 1'000'000) + "</r>");
  ASSERT_TRUE(document);
  EXPECT_EQ(document.documentElement().lastChild().attribute(L"b"), L"1");
}

TEST(XmlParsing, TakesTextFullOfQuotes) {
  const std::string quotes = repeated("\"a\" = 'b' ", 2000);
  const std::wstring text(quotes.begin(), quotes.end());
  expectText("<a>" + quotes + "</a>", text);
  expectText("<a><![CDATA[" + quotes + "]]></a>", text);
  expectText("<a>x<!-- " + quotes + " --></a>", L"x");
  expectText("<a>x<?pi " + quotes + " ?></a>", L"x");
}

TEST(XmlParsing, TakesMarkupFullOfQuotesAsText) {
  const std::string quotes = "<b " + repeated("c=\"d\" ", 2000) + "/>";
  expectText("<a><![CDATA[" + quotes + "]]></a>", std::wstring(quotes.begin(), quotes.end()));
}

TEST(XmlParsing, TakesALongAttribute) {
  const std::string value(1'000'000, 'v');
  const Document document = Document::parse("<a b='" + value + "'/>");
  ASSERT_TRUE(document);
  EXPECT_EQ(document.documentElement().attribute(L"b")->size(), value.size());
}

TEST(XmlParsing, TakesAsLongATextAsTheDomDoes) {
  constexpr std::size_t lines = 500'000;
  const std::string line = "A line of sixty characters and then its end, as CR and LF.\r\n";
  const std::string text = "<a>" + repeated(line, lines) + "</a>";
  if (text.size() > test::expectations().longestText) {
    if (!test::expectations().cutsLongerTexts) failureOf(text);
    return;
  }
  const Document document = Document::parse(text);
  ASSERT_TRUE(document);
  EXPECT_EQ(document.documentElement().text().size(), lines * (line.size() - 1));
}

TEST(XmlParsing, TakesAsDeepANestingAsTheDomDoes) {
  const std::size_t levels = test::expectations().mostLevels;
  const std::string text = repeated("<a>", levels) + "x" + repeated("</a>", levels);
  const Document document = Document::parse(text);
  ASSERT_TRUE(document);
  EXPECT_EQ(document.documentElement().text(), L"x");
  EXPECT_EQ(document.documentElement().select("a/a").text(), L"x");
  EXPECT_EQ(document.serialise(), text);
}

TEST(XmlParsing, ReadsAPrettyPrintedDocumentLikeACompactOne) {
  const std::string compact = "<a b=\"1\"><c>x y</c><d><e/></d></a>";
  const Document document = Document::parse(
      "<?xml version='1.0'?>\r\n<a  b='1' >\r\n\t<c>x y</c>\n\n  <d>\n    <e></e>\n  </d>\n</a>\n");
  ASSERT_TRUE(document);
  EXPECT_EQ(document.serialise(), compact);
}

TEST(XmlParsing, BindsANamespaceWhoseUriHasAnAmpersand) {
  const Document document = Document::parse("<n:a xmlns:n='urn:x?a&amp;b'><n:b>1</n:b></n:a>");
  ASSERT_TRUE(document);
  EXPECT_EQ(document.documentElement().namespaceUri(), L"urn:x?a&b");
}

TEST(XmlParsing, SerialisesANamespaceWhoseUriHasMarkup) {
  const std::string text = "<n:a xmlns:n=\"urn:x?a&amp;b\"><n:b/></n:a>";
  const Document document = Document::parse(text);
  ASSERT_TRUE(document);
  EXPECT_EQ(document.serialise(), text);
}

TEST(XmlParsing, SerialisesAPartWithTheNamespacesThatItHasFromAround) {
  const Document document = Document::parse(
      "<e xmlns='urn:e' xmlns:n='urn:n'><n:rsp a='1'><n:code>x</n:code></n:rsp></e>");
  ASSERT_TRUE(document);
  const std::string part = document.documentElement().firstChild().serialise();
  EXPECT_EQ(part, "<n:rsp xmlns:n=\"urn:n\" a=\"1\"><n:code>x</n:code></n:rsp>");
}

TEST(XmlParsing, SerialisesAPartThatCanBeReadAgainForTheSame) {
  const Document document =
      Document::parse("<e xmlns='urn:e'><n:rsp xmlns:n='urn:n'><inner/></n:rsp></e>");
  ASSERT_TRUE(document);
  const Document part = Document::parse(document.documentElement().firstChild().serialise());
  ASSERT_TRUE(part);
  EXPECT_EQ(part.documentElement().namespaceUri(), L"urn:n");
  EXPECT_EQ(part.documentElement().firstChild().namespaceUri(), L"urn:e");
}

TEST(XmlParsing, TakesAnswersOfAnyRealSize) {
  const std::string entry =
      "<n:route><n:adep>YSSY</n:adep><n:ades>YMML</n:ades><n:code>R1</n:code>"
      "<n:description>WOL H65 RAZZI Q29 LIZZI V279 ML</n:description></n:route>";
  const Document directory =
      Document::parse("<n:rsp xmlns:n='urn:n'>" + repeated(entry, 100'000) + "</n:rsp>");
  ASSERT_TRUE(directory);
  directory.bindPrefixes(L"xmlns:n='urn:n'");
  EXPECT_EQ(directory.documentElement().selectAll("n:route/n:code").size(), 100'000U);
}

}  // namespace
}  // namespace ktpnaips
