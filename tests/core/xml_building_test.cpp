#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/failure_recorder.h"

namespace ktpnaips {
namespace {

using modBrevank::addAttribute;
using modBrevank::addElement;

constexpr std::wstring_view uri = L"http://schema.test/naips/xsd";

constexpr std::wstring_view notSetInAddElement =
    L"Error 91 (Object variable or With block variable not set) in procedure addElement of Module "
    L"modBrevank";
constexpr std::wstring_view notSetInAddAttribute =
    L"Error 91 (Object variable or With block variable not set) in procedure addAttribute of "
    L"Module modBrevank";

TEST(AddedElement, BecomesTheDocumentElementOfABareDocument) {
  const xml::Document document = xml::Document::create();
  const xml::Node element = addElement(document, L"x", uri, L"");
  EXPECT_EQ(element.name(), L"ndd:x");
  EXPECT_EQ(element.namespaceUri(), uri);
  EXPECT_FALSE(element.firstChild());
  EXPECT_EQ(document.documentElement(), element);
  EXPECT_EQ(document.serialise(), "<ndd:x xmlns:ndd=\"http://schema.test/naips/xsd\"/>");
}

TEST(AddedElement, HoldsItsTextInASingleChild) {
  const xml::Document document = xml::Document::create();
  const xml::Node element = addElement(document, L"from", uri, L"2024-05-01T06:30:00Z");
  EXPECT_EQ(element.text(), L"2024-05-01T06:30:00Z");
  EXPECT_FALSE(element.firstChild().isElement());
  EXPECT_EQ(element.firstChild(), element.lastChild());
  EXPECT_EQ(document.serialise(),
            "<ndd:from xmlns:ndd=\"http://schema.test/naips/xsd\">2024-05-01T06:30:00Z</ndd:from>");
}

TEST(AddedElement, KeepsATextOfBlanks) {
  const xml::Document document = xml::Document::create();
  EXPECT_EQ(addElement(document, L"x", uri, L" ").text(), L" ");
  EXPECT_EQ(document.serialise(), "<ndd:x xmlns:ndd=\"http://schema.test/naips/xsd\"> </ndd:x>");
}

TEST(AddedElement, IsTheLastChildOfItsParent) {
  const xml::Document document = xml::Document::create();
  const xml::Node root = addElement(document, L"root", uri);
  addElement(root, L"b", uri, L"1");
  addElement(root, L"a", uri, L"2");
  addElement(root, L"b", uri, L"3");
  EXPECT_EQ(document.serialise(),
            "<ndd:root xmlns:ndd=\"http://schema.test/naips/xsd\"><ndd:b>1</ndd:b><ndd:a>2</ndd:a>"
            "<ndd:b>3</ndd:b></ndd:root>");
}

TEST(AddedElement, CarriesTheSamePrefixInAnyNamespace) {
  const xml::Document document = xml::Document::create();
  const xml::Node root = addElement(document, L"root", L"urn:one");
  const xml::Node inner = addElement(root, L"inner", L"urn:two");
  EXPECT_EQ(inner.name(), L"ndd:inner");
  EXPECT_EQ(inner.namespaceUri(), L"urn:two");
  EXPECT_EQ(document.serialise(),
            "<ndd:root xmlns:ndd=\"urn:one\"><ndd:inner xmlns:ndd=\"urn:two\"/></ndd:root>");
}

TEST(AddedElement, IsNoElementUnderNoParentAndTheFailureIsReported) {
  const test::FailureRecorder recorder;
  EXPECT_FALSE(addElement(xml::Node(), L"x", uri, L""));
  EXPECT_EQ(recorder.reports(), test::Reports{std::wstring(notSetInAddElement)});
}

TEST(AddedElement, IsNoElementUnderANameThatXmlDoesNotAllowAndTheFailureIsReported) {
  for (const wchar_t* name : {L"", L"a b", L"1", L"a:b", L"<", L"-a"}) {
    const test::FailureRecorder recorder;
    const xml::Document document = xml::Document::create();
    const xml::Node root = addElement(document, L"root", uri);
    EXPECT_FALSE(addElement(root, name, uri, L"text"));
    EXPECT_FALSE(root.firstChild());
    const auto reports = recorder.reports();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_TRUE(reports[0].starts_with(L"Error -"));
    EXPECT_TRUE(reports[0].ends_with(L") in procedure addElement of Module modBrevank"));
  }
}

TEST(AddedElement, IsNoElementWhereADocumentHasOneAndTheFailureIsReported) {
  const test::FailureRecorder recorder;
  const xml::Document document = xml::Document::create();
  addElement(document, L"first", uri);
  EXPECT_FALSE(addElement(document, L"second", uri));
  const auto reports = recorder.reports();
  ASSERT_EQ(reports.size(), 1U);
  EXPECT_TRUE(reports[0].ends_with(L") in procedure addElement of Module modBrevank"));
  EXPECT_EQ(document.serialise(), "<ndd:first xmlns:ndd=\"http://schema.test/naips/xsd\"/>");
}

TEST(AddedAttribute, HasNoPrefixAndNoDeclarationOfItsOwn) {
  const xml::Document document = xml::Document::create();
  const xml::Node element = addElement(document, L"x", uri);
  const xml::Node attribute = addAttribute(element, L"source", uri, L"orvalix");
  EXPECT_EQ(attribute.name(), L"source");
  EXPECT_EQ(attribute.text(), L"orvalix");
  EXPECT_EQ(element.attribute(L"source"), L"orvalix");
  EXPECT_EQ(document.serialise(),
            "<ndd:x xmlns:ndd=\"http://schema.test/naips/xsd\" source=\"orvalix\"/>");
}

TEST(AddedAttribute, StandsAfterThoseAddedBefore) {
  const xml::Document document = xml::Document::create();
  const xml::Node element = addElement(document, L"x", uri);
  addAttribute(element, L"b", uri, L"1");
  addAttribute(element, L"a", uri, L"2");
  addAttribute(element, L"c", uri, L"");
  EXPECT_EQ(document.serialise(),
            "<ndd:x xmlns:ndd=\"http://schema.test/naips/xsd\" b=\"1\" a=\"2\" c=\"\"/>");
}

TEST(AddedAttribute, ReplacesOneOfTheSameName) {
  const xml::Document document = xml::Document::create();
  const xml::Node element = addElement(document, L"x", uri);
  addAttribute(element, L"a", uri, L"old");
  addAttribute(element, L"a", uri, L"new");
  EXPECT_EQ(document.serialise(), "<ndd:x xmlns:ndd=\"http://schema.test/naips/xsd\" a=\"new\"/>");
}

TEST(AddedAttribute, IsNoAttributeOfNoElementAndTheFailureIsReported) {
  const test::FailureRecorder recorder;
  EXPECT_FALSE(addAttribute(xml::Node(), L"a", uri, L"1"));
  EXPECT_EQ(recorder.reports(), test::Reports{std::wstring(notSetInAddAttribute)});
}

TEST(AddedAttribute, IsNoAttributeUnderANameThatXmlDoesNotAllowAndTheFailureIsReported) {
  const test::FailureRecorder recorder;
  const xml::Document document = xml::Document::create();
  const xml::Node element = addElement(document, L"x", uri);
  EXPECT_FALSE(addAttribute(element, L"a b", uri, L"1"));
  const auto reports = recorder.reports();
  ASSERT_EQ(reports.size(), 1U);
  EXPECT_TRUE(reports[0].ends_with(L") in procedure addAttribute of Module modBrevank"));
  EXPECT_EQ(document.serialise(), "<ndd:x xmlns:ndd=\"http://schema.test/naips/xsd\"/>");
}

TEST(BooleanText, IsTrueOrFalse) {
  EXPECT_EQ(modBrevank::boolean(true), L"true");
  EXPECT_EQ(modBrevank::boolean(false), L"false");
}

}  // namespace
}  // namespace ktpnaips
