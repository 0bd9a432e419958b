#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>

/// What Wine's DOM does not have.
namespace ktpnaips {
namespace {

using xml::Document;
using xml::Node;

TEST(XmlSelectionOnPosix, GivesNamespacesAsTheirDeclarations) {
  const Document document =
      Document::parse("<x:r xmlns:x='urn:n' xmlns:y='urn:o'><x:deep><x:a/></x:deep></x:r>");
  const Node inner = document.documentElement().firstChild();
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

TEST(XmlAttributeOnPosix, HasThePrefixXmlInItsNamespace) {
  const Document document = Document::create();
  document.appendElement(L"a", L"", L"")
      .setAttribute(L"xml:lang", L"http://www.w3.org/XML/1998/namespace", L"en");
  EXPECT_EQ(document.serialise(), "<a xml:lang=\"en\"/>");
}

}  // namespace
}  // namespace ktpnaips
