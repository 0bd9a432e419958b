#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/fault.h"

namespace ktpnaips {
namespace {

using xml::Document;
using xml::Node;

Document parsed(const std::string& text) {
  Document document = Document::parse(text);
  EXPECT_TRUE(document) << text.substr(0, 200);
  return document;
}

Node rootOf(const std::string& text) {
  return parsed(text).documentElement();
}

std::vector<std::wstring> textsOf(const std::vector<Node>& nodes) {
  std::vector<std::wstring> texts;
  for (const auto& node : nodes) texts.push_back(node.text());
  return texts;
}

TEST(XmlDocument, IsNoDocumentUntilMade) {
  EXPECT_FALSE(Document());
  EXPECT_TRUE(Document::create());
  EXPECT_FALSE(Document::create().documentElement());
}

TEST(XmlDocument, SerialisesWithoutADeclarationOrLineEnds) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"p:root", L"urn:p", L"");
  root.appendElement(L"p:a", L"urn:p", L"one");
  root.appendElement(L"p:b", L"urn:p", L"");
  EXPECT_EQ(document.serialise(), "<p:root xmlns:p=\"urn:p\"><p:a>one</p:a><p:b/></p:root>");
}

TEST(XmlDocument, DeclaresAPrefixWhereItIsFirstNeeded) {
  const Document document = Document::create();
  const Node outer = document.appendElement(L"E:Envelope", L"urn:e", L"");
  const Node inner = outer.appendElement(L"n:a", L"urn:n", L"");
  inner.appendElement(L"n:b", L"urn:n", L"");
  outer.appendElement(L"n:c", L"urn:n", L"");
  EXPECT_EQ(document.serialise(),
            "<E:Envelope xmlns:E=\"urn:e\"><n:a xmlns:n=\"urn:n\"><n:b/></n:a>"
            "<n:c xmlns:n=\"urn:n\"/></E:Envelope>");
}

TEST(XmlDocument, EscapesMarkupInText) {
  const Document document = Document::create();
  document.appendElement(L"a", L"", L"<b>&amp;");
  EXPECT_EQ(document.serialise(), "<a>&lt;b&gt;&amp;amp;</a>");
}

TEST(XmlDocument, IsWrittenTheSameOnEveryPlatform) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"p:a", L"urn:<a&\"'b>", L"");
  root.setAttribute(L"x", L"", L"\u00e9\U0001F6E9 <>&\"'\t\n\r");
  root.appendElement(L"p:b", L"urn:<a&\"'b>", L"\u00e9\U0001F6E9 <>&\"'\t\n");
  root.appendElement(L"b", L"urn:b", L"").appendElement(L"c", L"urn:b", L"");
  EXPECT_EQ(document.serialise(),
            "<p:a xmlns:p=\"urn:&lt;a&amp;&quot;'b&gt;\" x=\"\xC3\xA9\xF0\x9F\x9B\xA9 "
            "&lt;&gt;&amp;&quot;'&#9;&#10;&#13;\"><p:b>\xC3\xA9\xF0\x9F\x9B\xA9 "
            "&lt;&gt;&amp;\"'\t\n</p:b><b xmlns=\"urn:b\"><c/></b></p:a>");
}

TEST(XmlDocument, IsWrittenWithAllThatWasParsed) {
  const std::string text =
      "<a xmlns=\"urn:a\" xmlns:p=\"urn:p\" p:x=\"1\" xml:lang=\"en\">1<?pi data?><!-- c --><p:b/>"
      "<![CDATA[<&]]>2<c xmlns=\"\"><d>3</d></c></a>";
  EXPECT_EQ(parsed(text).serialise(), text);
}

TEST(XmlDocument, TakesMoreAfterItWasParsed) {
  const Document document = parsed("<a x='1' y='2'><b/></a>");
  const Node root = document.documentElement();
  const Node added = root.appendElement(L"p:c", L"urn:p", L"text");
  added.appendElement(L"p:d", L"urn:p", L"").setAttribute(L"z", L"urn:p", L"3");
  root.firstChild().appendElement(L"e", L"", L"");
  root.setAttribute(L"x", L"", L"4");
  root.setAttribute(L"x", L"", L"5");
  EXPECT_EQ(root.attribute(L"x"), L"5");
  document.bindPrefixes(L"xmlns:p='urn:p'");
  EXPECT_EQ(root.select("p:c/p:d").attribute(L"z"), L"3");
  EXPECT_EQ(root.select("//p:c[p:d]").text(), L"text");
  EXPECT_EQ(document.serialise(),
            "<a y=\"2\" x=\"5\"><b><e/></b><p:c xmlns:p=\"urn:p\">text<p:d z=\"3\"/></p:c></a>");
}

TEST(XmlDocument, TakesNoPrefixForNoNamespace) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"p:a", L"", L"");
  EXPECT_EQ(root.name(), L"a");
  root.setAttribute(L"p:x", L"", L"1");
  EXPECT_EQ(root.attribute(L"x"), L"1");
  root.appendElement(L"p:b", L"urn:p", L"").appendElement(L"p:c", L"", L"2");
  EXPECT_EQ(document.serialise(), "<a x=\"1\"><p:b xmlns:p=\"urn:p\"><c>2</c></p:b></a>");
}

TEST(XmlDocument, LeavesTheDefaultNamespaceForAnElementOfNone) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"a", L"urn:a", L"");
  root.appendElement(L"b", L"", L"").appendElement(L"c", L"", L"");
  root.appendElement(L"p:d", L"", L"");
  root.appendElement(L"e", L"urn:a", L"");
  EXPECT_EQ(document.serialise(),
            "<a xmlns=\"urn:a\"><b xmlns=\"\"><c/></b><d xmlns=\"\"/><e/></a>");
  const Node again = rootOf(document.serialise());
  EXPECT_EQ(again.firstChild().namespaceUri(), L"");
  EXPECT_EQ(again.lastChild().namespaceUri(), L"urn:a");
}

TEST(XmlDocument, DeclaresAPrefixAnewWhereItStandsForSomethingElse) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"p:a", L"urn:1", L"");
  const Node inner = root.appendElement(L"b", L"", L"");
  inner.appendElement(L"p:c", L"urn:1", L"");
  inner.setAttribute(L"p:x", L"urn:2", L"");
  EXPECT_EQ(
      document.serialise(),
      "<p:a xmlns:p=\"urn:1\"><b xmlns:p=\"urn:2\" p:x=\"\"><p:c xmlns:p=\"urn:1\"/></b></p:a>");
}

TEST(XmlDocument, IsWrittenUpToAThousandLevels) {
  const Document document = Document::create();
  Node inner = document.appendElement(L"a", L"", L"");
  for (int i = 1; i < 1000; ++i) inner = inner.appendElement(L"a", L"", L"");
  EXPECT_EQ(document.serialise().size(), 999 * 7U + 4);
  const Node tooDeep = inner.appendElement(L"a", L"", L"");
  EXPECT_EQ(test::faultOf([&] { (void)document.serialise(); }), fault::invalidCall);
  EXPECT_EQ(inner.serialise(), "<a><a/></a>");
}

TEST(XmlDocument, IsItsOwnOwner) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"a", L"", L"");
  EXPECT_EQ(root.ownerDocument(), document);
  EXPECT_EQ(document.ownerDocument(), document);
  EXPECT_EQ(document.firstChild(), root);
  EXPECT_EQ(document.lastChild(), root);
}

TEST(XmlDocument, HoldsASingleDocumentElement) {
  const Document document = Document::create();
  document.appendElement(L"a", L"", L"");
  EXPECT_LT(test::faultOf([&] { document.appendElement(L"b", L"", L""); }), 0);
  EXPECT_EQ(document.serialise(), "<a/>");
}

TEST(XmlNode, IsNoNodeAtFirstAndThenEveryMemberFaults) {
  const Node none;
  EXPECT_FALSE(none);
  EXPECT_EQ(test::faultOf([&] { (void)none.ownerDocument(); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)none.isElement(); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)none.name(); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)none.namespaceUri(); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)none.firstChild(); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)none.lastChild(); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)none.nextSibling(); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { none.appendElement(L"a", L"", L""); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { none.setAttribute(L"a", L"", L""); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)none.attribute(L"a"); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)none.text(); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)none.select("a"); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)none.selectAll("a"); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { (void)none.serialise(); }), fault::objectNotSet);
  const Document nothing;
  EXPECT_EQ(test::faultOf([&] { (void)nothing.documentElement(); }), fault::objectNotSet);
  EXPECT_EQ(test::faultOf([&] { nothing.bindPrefixes(L"xmlns:a='urn:a'"); }), fault::objectNotSet);
}

TEST(XmlNode, KeepsItsDocumentAlive) {
  Node node;
  {
    const Document document = parsed("<a><b>text</b></a>");
    node = document.documentElement().firstChild();
  }
  EXPECT_EQ(node.text(), L"text");
  EXPECT_EQ(node.ownerDocument().serialise(), "<a><b>text</b></a>");
}

TEST(XmlNode, IsSharedByItsCopies) {
  const Document document = parsed("<a><b/></a>");
  const Node node = document.documentElement().firstChild();
  Node copy = node;
  EXPECT_EQ(copy, node);
  const Node moved = std::move(copy);
  EXPECT_EQ(moved, node);
  EXPECT_NE(moved, document.documentElement());
  Node assigned;
  assigned = moved;
  const Node& same = assigned;
  assigned = same;
  EXPECT_EQ(assigned, node);
}

TEST(XmlNode, KnowsItsNameAndNamespace) {
  const Node root = rootOf("<p:a xmlns:p='urn:p' xmlns='urn:d'><b/><c xmlns=''/></p:a>");
  EXPECT_EQ(root.name(), L"p:a");
  EXPECT_EQ(root.namespaceUri(), L"urn:p");
  EXPECT_EQ(root.firstChild().name(), L"b");
  EXPECT_EQ(root.firstChild().namespaceUri(), L"urn:d");
  EXPECT_EQ(root.lastChild().namespaceUri(), L"");
}

TEST(XmlNode, KnowsWhetherItIsAnElement) {
  const Node root = rootOf("<a>text<!-- c --><b/></a>");
  EXPECT_TRUE(root.isElement());
  EXPECT_FALSE(root.firstChild().isElement());
  EXPECT_FALSE(root.firstChild().nextSibling().isElement());
  EXPECT_TRUE(root.lastChild().isElement());
  EXPECT_FALSE(root.ownerDocument().isElement());
}

TEST(XmlNode, LeadsToItsChildrenAndSiblings) {
  const Node root = rootOf("<a><b/><c/><d/></a>");
  EXPECT_EQ(root.firstChild().name(), L"b");
  EXPECT_EQ(root.firstChild().nextSibling().name(), L"c");
  EXPECT_EQ(root.lastChild().name(), L"d");
  EXPECT_FALSE(root.lastChild().nextSibling());
  EXPECT_FALSE(root.firstChild().firstChild());
  EXPECT_FALSE(root.firstChild().lastChild());
}

TEST(XmlNode, TakesNoElementUnderAnInvalidName) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"a", L"", L"");
  for (const wchar_t* name : {L"", L" ", L"a b", L"1a", L"a:b:c", L":a", L"a:", L"<a>", L"a&"}) {
    EXPECT_LT(test::faultOf([&] { root.appendElement(name, L"urn:x", L""); }), 0);
    EXPECT_LT(test::faultOf([&] { root.setAttribute(name, L"urn:x", L""); }), 0);
  }
  EXPECT_EQ(document.serialise(), "<a/>");
}

TEST(XmlNode, TakesNoNameThatNamespacesReserve) {
  const std::wstring xmlNamespace = L"http://www.w3.org/XML/1998/namespace";
  const Document document = Document::create();
  const Node root = document.appendElement(L"a", L"", L"");
  const std::pair<std::wstring, std::wstring> names[] = {
      {L"xmlns", L""},      {L"xmlns", L"urn:x"}, {L"xmlns:p", L"urn:x"},
      {L"xml:p", L"urn:x"}, {L"xml:p", L""},      {L"p:a", xmlNamespace},
  };
  for (const auto& each : names) {
    EXPECT_LT(test::faultOf([&] { root.appendElement(each.first, each.second, L""); }), 0);
    EXPECT_LT(test::faultOf([&] { root.setAttribute(each.first, each.second, L""); }), 0);
  }
  EXPECT_EQ(document.serialise(), "<a/>");
}

TEST(XmlNode, TakesNoElementUnderText) {
  const Node text = rootOf("<a>text</a>").firstChild();
  EXPECT_NE(test::faultOf([&] { text.appendElement(L"b", L"", L""); }), 0);
}

TEST(XmlAttribute, IsWrittenUnderItsNameAlone) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"n:a", L"urn:n", L"");
  const Node attribute = root.setAttribute(L"met", L"urn:n", L"true");
  EXPECT_EQ(attribute.name(), L"met");
  EXPECT_EQ(attribute.text(), L"true");
  EXPECT_EQ(root.attribute(L"met"), L"true");
  EXPECT_EQ(document.serialise(), "<n:a xmlns:n=\"urn:n\" met=\"true\"/>");
}

TEST(XmlAttribute, ReplacesOneOfTheSameName) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"a", L"", L"");
  root.setAttribute(L"x", L"urn:n", L"1");
  root.setAttribute(L"x", L"urn:n", L"2");
  EXPECT_EQ(document.serialise(), "<a x=\"2\"/>");
}

TEST(XmlAttribute, ReplacesOneOfTheSameNameWhateverItsNamespace) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"a", L"", L"");
  root.setAttribute(L"x", L"", L"1");
  root.setAttribute(L"x", L"urn:n", L"2");
  root.setAttribute(L"p:x", L"urn:1", L"3");
  root.setAttribute(L"p:x", L"urn:2", L"4");
  EXPECT_EQ(document.serialise(), "<a xmlns:p=\"urn:2\" x=\"2\" p:x=\"4\"/>");
  root.setAttribute(L"x", L"", L"5");
  EXPECT_EQ(document.serialise(), "<a xmlns:p=\"urn:2\" p:x=\"4\" x=\"5\"/>");
}

TEST(XmlAttribute, ReplacesOneOfTheSameNamespaceUnderAnotherPrefix) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"a", L"", L"");
  root.setAttribute(L"p:x", L"urn:1", L"1");
  root.setAttribute(L"q:x", L"urn:1", L"2");
  EXPECT_EQ(document.serialise(), "<a xmlns:q=\"urn:1\" q:x=\"2\"/>");
}

TEST(XmlAttribute, CannotUseThePrefixOfItsElementForAnotherNamespace) {
  const Document document = Document::create();
  const Node root = document.appendElement(L"p:a", L"urn:1", L"");
  const Node inner = root.appendElement(L"p:b", L"urn:1", L"");
  EXPECT_LT(test::faultOf([&] { root.setAttribute(L"p:x", L"urn:2", L""); }), 0);
  EXPECT_LT(test::faultOf([&] { inner.setAttribute(L"p:x", L"urn:2", L""); }), 0);
  inner.setAttribute(L"q:x", L"urn:1", L"");
  EXPECT_LT(test::faultOf([&] { inner.setAttribute(L"q:y", L"urn:2", L""); }), 0);
  EXPECT_EQ(document.serialise(), "<p:a xmlns:p=\"urn:1\"><p:b xmlns:q=\"urn:1\" q:x=\"\"/></p:a>");
}

TEST(XmlAttribute, KeepsItsValueWhenItIsReplaced) {
  const Document document = parsed("<a b='1' c='2'/>");
  const Node root = document.documentElement();
  for (const char* expression : {"@b", "@*[.='1']"}) {
    root.setAttribute(L"b", L"", L"1");
    const Node old = root.select(expression);
    root.setAttribute(L"b", L"", L"3");
    EXPECT_EQ(old.text(), L"1") << expression;
    EXPECT_EQ(old.name(), L"b") << expression;
    EXPECT_EQ(root.attribute(L"b"), L"3");
  }
  EXPECT_EQ(document.serialise(), "<a c=\"2\" b=\"3\"/>");
}

TEST(XmlAttribute, CarriesAnyText) {
  const std::wstring value = L" <&>\"' \u00e9\u4e2d\U0001F6E9\t\n";
  const Document document = Document::create();
  document.appendElement(L"a", L"", L"").setAttribute(L"x", L"", value);
  EXPECT_EQ(rootOf(document.serialise()).attribute(L"x"), value);
}

TEST(XmlAttribute, IsFoundByItsQualifiedName) {
  const Node root = rootOf("<a xmlns:p='urn:p' x='1' p:x='2' y=''/>");
  EXPECT_EQ(root.attribute(L"x"), L"1");
  EXPECT_EQ(root.attribute(L"p:x"), L"2");
  EXPECT_EQ(root.attribute(L"y"), L"");
  EXPECT_EQ(root.attribute(L"X"), std::nullopt);
  EXPECT_EQ(root.attribute(L"z"), std::nullopt);
}

TEST(XmlAttribute, IsATypeMismatchOfAnythingButAnElement) {
  const Node root = rootOf("<a>text<!-- c --></a>");
  EXPECT_EQ(test::faultOf([&] { (void)root.firstChild().attribute(L"x"); }), fault::typeMismatch);
  EXPECT_EQ(test::faultOf([&] { (void)root.lastChild().attribute(L"x"); }), fault::typeMismatch);
  EXPECT_EQ(test::faultOf([&] { (void)root.ownerDocument().attribute(L"x"); }),
            fault::typeMismatch);
}

TEST(XmlText, IsWholeAndUnchanged) {
  const struct {
    std::string document;
    std::wstring text;
  } cases[] = {
      {"<a/>", L""},
      {"<a></a>", L""},
      {"<a>x</a>", L"x"},
      {"<a>  x\t</a>", L"  x\t"},
      {"<a>\n x \n</a>", L"\n x \n"},
      {"<a>1<b>2</b>3<b><c>4</c></b></a>", L"1234"},
      {"<a> 1 <b> 2 </b> 3 </a>", L" 1  2  3 "},
      {"<a>x<!-- c -->y</a>", L"xy"},
      {"<a>x<?pi d?>y</a>", L"xy"},
      {"<a><![CDATA[<&>]]></a>", L"<&>"},
      {"<a>x<![CDATA[ y ]]>z</a>", L"x y z"},
      {"<a>&lt;&gt;&amp;&quot;&apos;</a>", L"<>&\"'"},
      {"<a>&#233;&#x20AC;&#x1F6E9;</a>", L"\u00e9\u20ac\U0001F6E9"},
      {"<a>x&#13;y&#10;z&#9;</a>", L"x\ry\nz\t"},
      {"<a>x\r\ny\rz</a>", L"x\ny\nz"},
      {"<a>\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x9B\xA9\xC2\xA0</a>", L"\u00e9\u4e2d\U0001F6E9\u00a0"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(rootOf(each.document).text(), each.text) << each.document;
    EXPECT_EQ(parsed(each.document).text(), each.text) << each.document;
  }
}

TEST(XmlText, OfWhiteSpaceAloneIsNoNode) {
  const Node root = rootOf("<a>\r\n  <b/>\n\t<c> </c>\n</a>\n");
  EXPECT_EQ(root.firstChild().name(), L"b");
  EXPECT_EQ(root.firstChild().nextSibling().name(), L"c");
  EXPECT_FALSE(root.lastChild().firstChild());
  EXPECT_EQ(root.text(), L"");
}

TEST(XmlText, OfBlanksThatXmlDoesNotCountAsWhiteSpaceIsANode) {
  EXPECT_EQ(rootOf("<a>\xC2\xA0</a>").text(), L"\u00a0");
}

TEST(XmlText, IsHandedToAReaderInOnePiece) {
  for (const char* document : {"<a>one two</a>", "<a>one<b> two</b></a>"}) {
    int calls = 0;
    rootOf(document).readText([&](auto text) {
      ++calls;
      using Char = typename decltype(text)::value_type;
      const std::string_view expected = "one two";
      EXPECT_EQ(text, std::basic_string<Char>(expected.begin(), expected.end()));
    });
    EXPECT_EQ(calls, 1);
  }
}

class XmlSelection : public testing::Test {
 protected:
  XmlSelection() { document.bindPrefixes(L"xmlns:n='urn:n'  xmlns:o='urn:o'"); }

  const Document document = parsed(
      "<x:r xmlns:x='urn:n' xmlns:y='urn:o'><x:a>1<x:b>2</x:b></x:a><y:a>3</y:a>"
      "<x:a>4<x:b>5</x:b><x:b>6</x:b><y:b>7</y:b></x:a><a>8<x:b>9</x:b></a>"
      "<x:deep><x:a><x:b>10</x:b></x:a></x:deep></x:r>");
  const Node root = document.documentElement();
};

TEST_F(XmlSelection, GivesTheFirstChildOfAName) {
  EXPECT_EQ(root.select("n:a").text(), L"12");
  EXPECT_EQ(root.select("o:a").text(), L"3");
  EXPECT_EQ(root.select("a").text(), L"89");
}

TEST_F(XmlSelection, GivesNoNodeWithoutAMatch) {
  EXPECT_FALSE(root.select("n:none"));
  EXPECT_FALSE(root.select("n:b"));
  EXPECT_FALSE(root.select("n:a/n:none"));
  EXPECT_FALSE(root.select("//n:none"));
  EXPECT_TRUE(root.selectAll("n:none").empty());
}

TEST_F(XmlSelection, GivesAllChildrenOfANameInDocumentOrder) {
  EXPECT_EQ(textsOf(root.selectAll("n:a")), (std::vector<std::wstring>{L"12", L"4567"}));
}

TEST_F(XmlSelection, FollowsPathsOfChildren) {
  EXPECT_EQ(textsOf(root.selectAll("n:a/n:b")), (std::vector<std::wstring>{L"2", L"5", L"6"}));
  EXPECT_EQ(root.select("n:a/o:b").text(), L"7");
  EXPECT_EQ(root.select("n:deep/n:a/n:b").text(), L"10");
}

TEST_F(XmlSelection, SearchesTheWholeDocumentFromAnyNode) {
  const Node inner = root.select("n:deep");
  EXPECT_EQ(inner.select("//n:b").text(), L"2");
  EXPECT_EQ(textsOf(inner.selectAll("//n:b")),
            (std::vector<std::wstring>{L"2", L"5", L"6", L"9", L"10"}));
  EXPECT_EQ(inner.select("//n:r"), root);
}

TEST_F(XmlSelection, SelectsByPredicatesAndAttributes) {
  const Document other = parsed("<r><p t='1'/><p t='2'>x</p></r>");
  EXPECT_EQ(other.documentElement().select("p[@t='2']").text(), L"x");
  EXPECT_EQ(textsOf(other.documentElement().selectAll("p/@t")),
            (std::vector<std::wstring>{L"1", L"2"}));
}

TEST_F(XmlSelection, SelectsAttributesByPath) {
  const Document other = parsed("<r xmlns:x='urn:n'><p t='1' x:t='2'/><p x:t='3' t='4'/></r>");
  other.bindPrefixes(L"xmlns:n='urn:n'");
  const Node from = other.documentElement();
  for (const std::string before : {"", "./"}) {
    EXPECT_EQ(textsOf(from.selectAll(before + "p/@t")), (std::vector<std::wstring>{L"1", L"4"}));
    EXPECT_EQ(textsOf(from.selectAll(before + "p/@n:t")), (std::vector<std::wstring>{L"2", L"3"}));
    EXPECT_EQ(from.firstChild().select(before + "@t"), from.select(before + "p/@t"));
    EXPECT_FALSE(from.select(before + "@t"));
    EXPECT_FALSE(from.select(before + "p/@xmlns"));
    EXPECT_FALSE(from.select(before + "@t/p"));
  }
}

TEST_F(XmlSelection, GivesTheSameNodesByPathAndByExpression) {
  for (const Node& node : root.selectAll("n:a | n:a/n:b | o:a | n:a/text() | //comment()")) {
    EXPECT_TRUE(node.ownerDocument() == document);
  }
  EXPECT_EQ(root.select("n:a"), root.select("*[1]"));
  EXPECT_EQ(root.select("n:a").firstChild(), root.select("n:a/text()"));
  EXPECT_EQ(root.select(".."), document);
  EXPECT_EQ(root.firstChild().firstChild().select("following-sibling::n:b").text(), L"2");
  EXPECT_EQ(root.firstChild().firstChild().select(".."), root.firstChild());
}

TEST_F(XmlSelection, SeesWhatWasAddedSince) {
  EXPECT_FALSE(root.select("*[@new]"));
  root.firstChild().setAttribute(L"new", L"", L"1");
  EXPECT_EQ(root.select("*[@new]"), root.firstChild());
  root.appendElement(L"n:c", L"urn:n", L"text").setAttribute(L"o:d", L"urn:o", L"2");
  EXPECT_EQ(root.select("n:c[@o:d='2']").text(), L"text");
  EXPECT_EQ(root.select("*[last()]/@*").text(), L"2");
  root.appendElement(L"n:e", L"urn:n", L"more");
  EXPECT_EQ(root.select("*[last()]").text(), L"more");
}

TEST_F(XmlSelection, StartsAtTheDocumentForAnAbsolutePath) {
  EXPECT_EQ(root.select("n:deep").select("/n:r/o:a").text(), L"3");
  EXPECT_FALSE(root.select("/n:a"));
}

TEST_F(XmlSelection, MayBindItsPrefixesAnew) {
  document.bindPrefixes(L"xmlns:n=\"urn:o\"");
  EXPECT_EQ(root.select("n:a").text(), L"3");
  EXPECT_LT(test::faultOf([&] { (void)root.select("o:a"); }), 0);
  EXPECT_EQ(root.select("//n:b").text(), L"7");
}

TEST_F(XmlSelection, FaultsOnAnUnknownPrefixOrABrokenExpression) {
  for (const char* expression : {"z:a", "n:a/z:b", "//z:a", "n:a[", "", "///"}) {
    EXPECT_LT(test::faultOf([&] { (void)root.select(expression); }), 0) << expression;
    EXPECT_LT(test::faultOf([&] { (void)root.selectAll(expression); }), 0) << expression;
  }
}

TEST(XmlForbiddenCharacters, AreRefusedWhenADocumentIsSerialised) {
  const std::wstring forbidden[] = {std::wstring(1, L'\0'),
                                    L"\x01",
                                    L"\x08",
                                    L"\x0b",
                                    L"\x0c",
                                    L"\x0e",
                                    L"\x1f",
                                    std::wstring(1, static_cast<wchar_t>(0xD800)),
                                    std::wstring(1, static_cast<wchar_t>(0xDBFF)),
                                    std::wstring(1, static_cast<wchar_t>(0xDC00)),
                                    std::wstring(1, static_cast<wchar_t>(0xDFFF)),
                                    L"\ufffe",
                                    L"\uffff"};
  for (const auto& character : forbidden) {
    const Document inText = Document::create();
    inText.appendElement(L"a", L"", L"x" + character + L"y");
    EXPECT_EQ(test::faultOf([&] { (void)inText.serialise(); }), fault::invalidCall);
    const Document inAttribute = Document::create();
    inAttribute.appendElement(L"a", L"", L"").setAttribute(L"b", L"", L"x" + character + L"y");
    EXPECT_EQ(test::faultOf([&] { (void)inAttribute.serialise(); }), fault::invalidCall);
  }
}

TEST(XmlForbiddenCharacters, AreNotTheirNeighbours) {
  const std::wstring allowed = L"\t\n \x7f\u0080\u009f\xd7ff\ue000\ufffd\U00010000\U0010FFFF";
  const Document document = Document::create();
  document.appendElement(L"a", L"", allowed);
  EXPECT_EQ(rootOf(document.serialise()).text(), allowed);
}

}  // namespace
}  // namespace ktpnaips
