#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_refusal.h>

#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/xmlmemory.h>

#include <malloc.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "tests/support/refusal.h"
#include "tests/support/repeated.h"

/// What hostile answers cost libxml2: counted, not timed.
namespace ktpnaips {
namespace {

using test::refusalOf;
using test::repeated;
using xml::Document;
using xml::ParseFailure;

struct Cost {
  std::size_t live = 0;
  std::size_t peak = 0;   ///< the most bytes held at a time
  std::size_t total = 0;  ///< the bytes of all allocations
};

Cost cost;

void* counted(void* memory) {
  const std::size_t size = ::malloc_usable_size(memory);
  cost.live += size;
  cost.total += size;
  cost.peak = std::max(cost.peak, cost.live);
  return memory;
}

void countedFree(void* memory) {
  cost.live -= std::min(cost.live, ::malloc_usable_size(memory));
  std::free(memory);
}

void* countedMalloc(std::size_t size) {
  return counted(std::malloc(size));
}

void* countedRealloc(void* memory, std::size_t size) {
  cost.live -= std::min(cost.live, ::malloc_usable_size(memory));
  return counted(std::realloc(memory, size));
}

char* countedCopy(const char* text) {
  return static_cast<char*>(counted(::strdup(text)));
}

/// Counts what libxml2 allocates until the end of the scope.
class CountedMemory {
 public:
  CountedMemory() {
    cost = {};
    xmlMemGet(&free_, &malloc_, &realloc_, &copy_);
    xmlMemSetup(countedFree, countedMalloc, countedRealloc, countedCopy);
  }
  ~CountedMemory() { xmlMemSetup(free_, malloc_, realloc_, copy_); }
  CountedMemory(const CountedMemory&) = delete;
  CountedMemory& operator=(const CountedMemory&) = delete;

 private:
  xmlFreeFunc free_ = nullptr;
  xmlMallocFunc malloc_ = nullptr;
  xmlReallocFunc realloc_ = nullptr;
  xmlStrdupFunc copy_ = nullptr;
};

Cost costOf(const std::string& text) {
  const CountedMemory counting;
  Document::parse(text);
  return cost;
}

std::string numbered(std::string_view before, std::size_t times, std::string_view after) {
  std::string text;
  for (std::size_t i = 0; i < times; ++i) {
    text += before;
    text += std::to_string(i);
    text += after;
  }
  return text;
}

int entitiesAskedFor = 0;

xmlParserInputPtr refuseEntity(const char*, const char*, xmlParserCtxtPtr) {
  ++entitiesAskedFor;
  return nullptr;
}

TEST(XmlAttacks, AskForNothingOutsideTheText) {
  const xmlExternalEntityLoader before = xmlGetExternalEntityLoader();
  xmlSetExternalEntityLoader(refuseEntity);
  const std::string subset =
      "<!DOCTYPE a SYSTEM 'file:///etc/passwd' [<!ENTITY e SYSTEM 'http://127.0.0.1:1/'>]>"
      "<a>&e;</a>";
  std::string wide = "\xFF\xFE";
  for (const char c : subset) wide.append({c, '\0'});
  for (const std::string& text :
       {subset, "<?xml version='1.0' encoding='ISO-8859-1'?>" + subset, wide,
        std::string("<?xml-stylesheet href='http://127.0.0.1:1/'?><a/>"),
        std::string("<a xmlns:x='http://www.w3.org/2001/XInclude'><x:include href='/etc/passwd' "
                    "parse='text'/></a>"),
        std::string("<a xmlns:x='http://www.w3.org/2001/XMLSchema-instance' "
                    "x:noNamespaceSchemaLocation='http://127.0.0.1:1/'/>")}) {
    if (const Document document = Document::parse(text)) {
      EXPECT_EQ(document.documentElement().text(), L"") << text;
    }
  }
  xmlSetExternalEntityLoader(before);
  EXPECT_EQ(entitiesAskedFor, 0);
}

TEST(XmlAttacks, NestAThousandLevels) {
  const std::string thousand = repeated("<a>", 1000) + repeated("</a>", 1000);
  EXPECT_EQ(Document::parse(thousand).serialise().size(), thousand.size() - 3);
  EXPECT_EQ(refusalOf("<b>" + thousand + "</b>"), L"elements are nested more than 1,000 deep");
}

// Every prefix is looked up through all levels around it.
TEST(XmlAttacks, LookNoPrefixUpThroughLevelsByTheThousand) {
  constexpr std::size_t times = 300'000;
  EXPECT_NE(refusalOf("<n:a xmlns:n='urn:n'>" + repeated("<b>", times) + repeated("<n:c/>", times) +
                      repeated("</b>", times) + "</n:a>"),
            L"");
}

TEST(XmlAttacks, DeclareAThousandNamespacesAtATime) {
  const std::string siblings = repeated("<b xmlns='urn:b'/>", 100'000);
  EXPECT_TRUE(Document::parse("<a>" + siblings + "</a>"));
  const std::string five = " xmlns:a='u' xmlns:b='u' xmlns:c='u' xmlns:d='u' xmlns:e='u'";
  const auto around = [&](std::string_view inner) {
    return repeated("<a" + five + ">", 200) + std::string(inner) + repeated("</a>", 200);
  };
  EXPECT_TRUE(Document::parse(around("<b/>")));
  EXPECT_EQ(refusalOf(around("<b xmlns:f='u'/>")),
            L"more than 1,000 namespaces are declared at a time");
}

TEST(XmlAttacks, HaveFewNames) {
  EXPECT_TRUE(Document::parse("<a>" + numbered("<b", 10'000, "/>") + "</a>"));
  const std::wstring reason = L"the names of elements and attributes are too many or too long";
  EXPECT_EQ(refusalOf("<a>" + numbered("<b", 100'000, "/>") + "</a>"), reason);
  EXPECT_EQ(refusalOf("<a>" + numbered("<a b", 100'000, "=''/>") + "</a>"), reason);
  EXPECT_EQ(refusalOf("<a>" + numbered("<a xmlns='", 100'000, "'/>") + "</a>"), reason);
}

TEST(XmlAttacks, KeepNoTableOfIdentifiers) {
  const auto attributes = [](std::string_view name) {
    return costOf("<a>" + numbered("<b " + std::string(name) + "='i", 10'000, "'/>") + "</a>").peak;
  };
  EXPECT_EQ(attributes("xml:id"), attributes("xml:ix"));
}

TEST(XmlAttacks, TakeMemoryInProportionToTheText) {
  constexpr std::size_t times = 100'000;
  const std::string name(10'000'000, 'n');
  for (const std::string& text : {
           "<" + name + "/>",
           "<a " + name + "=''/>",
           "<a xmlns='" + name + "'/>",
           "<a xmlns:" + name + "='u'/>",
           "<a>&" + name + ";</a>",
           "<a><?" + name + "?></a>",
           "<a>" + repeated("x<b/>", times) + "</a>",
           "<a>" + repeated("\n<b/>", times) + "</a>",
           "<a>" + repeated("<b c=''/>", times) + "</a>",
           "<a>" + repeated("<b xmlns='u'/>", times) + "</a>",
           "<a>" + repeated("<!---->", times) + "</a>",
           "<a>" + repeated("<?p?>", times) + "</a>",
           "<a>" + repeated("<![CDATA[]]>", times) + "</a>",
           "<a b='" + repeated("&#65;", times) + "'/>",
           repeated("<a>", times),
       }) {
    EXPECT_LT(costOf(text).peak, 64 * text.size() + 1'000'000) << text.substr(0, 40);
  }
}

// Each error makes libxml2 copy what it tells about.
TEST(XmlAttacks, CopyLittleForEachError) {
  constexpr std::size_t times = 100'000;
  for (const std::string_view piece :
       {"<", "<?", "<!", "<!--", "<![CDATA[", "&", "&x;", "]]>", "\x01", "\xFF", "<p:b/>",
        "<b></c>", "<b c='' c=''/>", "<?xml ?>", "<b xmlns:c=''/>"}) {
    const std::string text = "<a>" + repeated(piece, times) + "</a>";
    EXPECT_LT(costOf(text).total, 1000 * text.size() + 1'000'000) << piece;
  }
}

TEST(XmlNodes, OfADocumentAreFourMillionAtMost) {
  const auto ofElements = [](std::size_t count) {
    return "<r>" + repeated("<a/>", count) + "</r>";
  };
  ParseFailure failure;
  EXPECT_TRUE(Document::parse(ofElements(4'194'000), &failure));
  EXPECT_FALSE(Document::parse(ofElements(4'194'400), &failure));
  EXPECT_EQ(failure.reason, L"the document has more than 4 million nodes");
  EXPECT_TRUE(failure.isTooLarge);
  EXPECT_FALSE(Document::parse(std::string(1'100, '<'), &failure));
  EXPECT_FALSE(failure.isTooLarge);
  EXPECT_FALSE(Document::parse("<!DOCTYPE a><a/>", &failure));
  EXPECT_FALSE(failure.isTooLarge);
}

TEST(XmlText, OfMoreThanTwoGigabytesIsRefusedUnread) {
  const std::size_t size = std::size_t{1} << 31U;
  void* const unread = ::mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(unread, MAP_FAILED);
  EXPECT_EQ(xml::refusalBeforeParsing({static_cast<const char*>(unread), size}),
            L"the text is longer than 2 GB");
  ::munmap(unread, size);
}

}  // namespace
}  // namespace ktpnaips
