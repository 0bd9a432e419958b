#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_refusal.h>

#include <libxml/SAX2.h>
#include <libxml/parser.h>

#include <array>
#include <memory>

#include "fuzzing.h"

/// What refuses crowded elements before parsing, against the attributes that a parser counts.
namespace {

constexpr std::array<std::string_view, 28> pieces{
    "<a", "<b:c", ">",    "/>", "</a>",      "</b:c>",   " d='1'",  " e=\"2\"",  "f=\"'\"", " '\"'",
    "\"", "'",    "=",    " ",  "\n",        "<!--",     "-->",     "<![CDATA[", "]]>",     "<?p ",
    "?>", "&lt;", "text", "<",  " xmlns=''", " b:g='>'", " h='/>'", "--"};

/// Well-formed documents are rare: names of attributes are numbered so that they differ, and what
/// has been opened is closed.
std::string document(fuzz::Input& input) {
  std::string text = "<r xmlns:b='urn:b'>";
  while (!input.isEmpty()) {
    const std::uint8_t byte = input.byte();
    if (byte < 32) {
      const unsigned count = (byte + 1U) * 34U;  // up to 1088
      for (unsigned i = 0; i < count; ++i) text += " i" + std::to_string(i) + "=\"1\"";
    } else {
      text += pieces[byte % pieces.size()];
    }
  }
  return text + "</r>";
}

struct Counted {
  int mostAttributes = 0;
};

void countAttributes(void* context, const xmlChar*, const xmlChar*, const xmlChar*, int namespaces,
                     const xmlChar**, int attributes, int, const xmlChar**) {
  auto& counted = *static_cast<Counted*>(context);
  counted.mostAttributes = std::max(counted.mostAttributes, namespaces + attributes);
}

/// The most attributes of an element, or -1 when the text is not well-formed.
int mostAttributes(const std::string& text) {
  xmlSAXHandler handler{};
  handler.initialized = XML_SAX2_MAGIC;
  handler.startElementNs = countAttributes;
  Counted counted;
  const int failure =
      xmlSAXUserParseMemory(&handler, &counted, text.data(), static_cast<int>(text.size()));
  return failure == 0 ? counted.mostAttributes : -1;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::string text = document(input);
  const bool isRefused = !ktpnaips::xml::refusalBeforeParsing(text).empty();
  const int most = mostAttributes(text);
  if (most >= 0) fuzz::require(isRefused == (most > 1000), "crowded documents only are refused");
  return 0;
}
