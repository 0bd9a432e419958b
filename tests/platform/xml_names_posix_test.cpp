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
  root.setAttribute(L"xml:lang", xmlNamespace, L"en");
  EXPECT_EQ(document.serialise(), "<a xml:lang=\"en\"/>");
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

class XmlSelectionOnPosix : public testing::Test {
 protected:
  XmlSelectionOnPosix() { document.bindPrefixes(L"xmlns:n='urn:n'  xmlns:o='urn:o'"); }

  const Document document = parsed(
      "<x:r xmlns:x='urn:n' xmlns:y='urn:o'><x:a>1<x:b>2</x:b></x:a><y:a>3</y:a>"
      "<x:a>4<x:b>5</x:b><x:b>6</x:b><y:b>7</y:b></x:a><a>8<x:b>9</x:b></a>"
      "<x:deep><x:a><x:b>10</x:b></x:a></x:deep></x:r>");
  const Node root = document.documentElement();
};

TEST_F(XmlSelectionOnPosix, SelectsAttributesByPath) {
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

TEST_F(XmlSelectionOnPosix, GivesTheSameNodesByPathAndByExpression) {
  for (const Node& node : root.selectAll("n:a | n:a/n:b | o:a | n:a/text() | //comment()")) {
    EXPECT_TRUE(node.ownerDocument() == document);
  }
  EXPECT_EQ(root.select("n:a"), root.select("*[1]"));
  EXPECT_EQ(root.select("n:a").firstChild(), root.select("n:a/text()"));
  EXPECT_EQ(root.select(".."), document);
  EXPECT_EQ(root.firstChild().firstChild().select("following-sibling::n:b").text(), L"2");
  EXPECT_EQ(root.firstChild().firstChild().select(".."), root.firstChild());
}

TEST_F(XmlSelectionOnPosix, SeesWhatWasAddedSince) {
  EXPECT_FALSE(root.select("*[@new]"));
  root.firstChild().setAttribute(L"new", L"", L"1");
  EXPECT_EQ(root.select("*[@new]"), root.firstChild());
  root.appendElement(L"n:c", L"urn:n", L"text").setAttribute(L"o:d", L"urn:o", L"2");
  EXPECT_EQ(root.select("n:c[@o:d='2']").text(), L"text");
  EXPECT_EQ(root.select("*[last()]/@*").text(), L"2");
}

TEST_F(XmlSelectionOnPosix, GivesNamespacesAsTheirDeclarations) {
  const Node inner = root.select("n:deep");
  const Node space = inner.select("namespace::y");
  EXPECT_EQ(space.name(), L"xmlns:y");
  EXPECT_EQ(space.text(), L"urn:o");
  EXPECT_EQ(space.serialise(), "xmlns:y=\"urn:o\"");
  EXPECT_EQ(inner.selectAll("namespace::*").size(), 3U);
  const Document built = Document::create();
  built.appendElement(L"p:a", L"urn:p", L"").appendElement(L"b", L"", L"");
  EXPECT_EQ(built.documentElement().firstChild().select("namespace::p").text(), L"urn:p");
  EXPECT_EQ(built.serialise(), "<p:a xmlns:p=\"urn:p\"><b/></p:a>");
}

}  // namespace
}  // namespace ktpnaips
