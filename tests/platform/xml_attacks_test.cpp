#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_refusal.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "tests/support/refusal.h"
#include "tests/support/repeated.h"

/// Answers made to cost time or memory, or to read what is not theirs.
namespace ktpnaips {
namespace {

using test::refusalOf;
using test::repeated;
using xml::Document;

std::string nested(std::size_t levels) {
  return repeated("<a>", levels) + repeated("</a>", levels);
}

TEST(XmlAttacks, ExpandNoEntity) {
  std::string entities = "<!ENTITY e0 'lol'>";
  for (int i = 1; i < 30; ++i) {
    const std::string before = "&e" + std::to_string(i - 1) + ';';
    entities += "<!ENTITY e" + std::to_string(i) + " '" + repeated(before, 10) + "'>";
  }
  EXPECT_EQ(refusalOf("<!DOCTYPE a [" + entities + "]><a>&e29;</a>"), xml::doctypeRefused);
  EXPECT_EQ(refusalOf("<!DOCTYPE a [<!ENTITY e '" + std::string(1'000'000, 'x') + "'>]><a>" +
                      repeated("&e;", 1'000'000) + "</a>"),
            xml::doctypeRefused);
}

TEST(XmlAttacks, ReadNoExternalEntity) {
  for (const std::string_view target :
       {"file:///etc/passwd", "/etc/passwd", "http://127.0.0.1:1/", "ftp://127.0.0.1:1/"}) {
    const std::string uri(target);
    EXPECT_EQ(refusalOf("<!DOCTYPE a [<!ENTITY e SYSTEM '" + uri + "'>]><a>&e;</a>"),
              xml::doctypeRefused);
    EXPECT_EQ(refusalOf("<!DOCTYPE a [<!ENTITY % e SYSTEM '" + uri + "'> %e;]><a/>"),
              xml::doctypeRefused);
    EXPECT_EQ(refusalOf("<!DOCTYPE a PUBLIC '-//X//EN' '" + uri + "'><a/>"), xml::doctypeRefused);
  }
}

TEST(XmlAttacks, NestNoDeeperThanTheDomTakes) {
  EXPECT_NE(refusalOf(nested(100'000)), L"");
}

TEST(XmlAttacks, DeclareNoNamespacesByTheThousandOnAnElement) {
  std::string declarations;
  for (int i = 0; i < 100'000; ++i) declarations += " xmlns:n" + std::to_string(i) + "='urn:n'";
  EXPECT_NE(refusalOf("<a" + declarations + "/>"), L"");
}

TEST(XmlAttacks, OpenNoCommentInAComment) {
  const std::wstring reason = L"a comment holds \"--\"";
  EXPECT_EQ(refusalOf("<a>" + repeated("<!--", 1'000'000) + "--></a>"), reason);
  EXPECT_EQ(refusalOf("<a><!-- a --- --></a>"), reason);
  EXPECT_EQ(refusalOf("<a><!-- a ---></a>"), reason);
  EXPECT_EQ(refusalOf("<a/><!-- -- -->"), reason);
  EXPECT_EQ(refusalOf("<!-- -- --><a/>"), reason);
}

TEST(XmlAttacks, AreNoCommentsInOtherMarkup) {
  for (const char* text :
       {"<a><!----></a>", "<a><!-- a - b --></a>", "<a><![CDATA[<!-- -- -->]]></a>",
        "<a><?pi <!-- -- --> ?></a>", "<a b='-- &lt;!-- --'/>", "<a>-- --&gt;</a>"}) {
    EXPECT_TRUE(Document::parse(text)) << text;
  }
}

TEST(XmlAttacks, FloodWithMarkupThatIsPassedOver) {
  constexpr std::size_t times = 200'000;
  for (const std::string_view piece : {"<!---->", "<?p?>", "<![CDATA[x]]>", "&#65;", "&amp;"}) {
    EXPECT_TRUE(Document::parse("<a>" + repeated(piece, times) + "</a>")) << piece;
  }
  EXPECT_TRUE(Document::parse(repeated("<!---->", times) + "<a/>" + repeated("<?p?>", times)));
}

}  // namespace
}  // namespace ktpnaips
