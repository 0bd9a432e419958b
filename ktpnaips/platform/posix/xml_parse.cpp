#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_refusal.h>

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <utility>

namespace ktpnaips::xml {
namespace {

using ParserContext = std::unique_ptr<xmlParserCtxt, FreeWith<xmlFreeParserCtxt>>;

// Without entities in place, libxml2 keeps "&#38;" in a namespace's URI; there are none of a
// document's own, since a document type declaration is refused.
constexpr int options = XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_NOERROR |
                        XML_PARSE_NOWARNING | XML_PARSE_COMPACT;

/// Stops at a document type declaration in an encoding that only the parser can read.
void refuseDoctype(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
  auto* parser = static_cast<xmlParserCtxtPtr>(context);
  parser->_private = parser;
  xmlStopParser(parser);
}

/// True when libxml2 can read the text where it lies: UTF-8 without a declaration that it would
/// have to look into.
bool isPlainUtf8(std::string_view text) {
  const bool marked = text.starts_with("\xFE\xFF") || text.starts_with("\xFF\xFE") ||
                      text.starts_with("\xEF\xBB\xBF") || text.find('\0') != std::string_view::npos;
  if (marked) return false;
  if (!text.starts_with("<?xml")) return true;
  const std::string_view declaration = text.substr(0, text.find("?>"));
  return declaration.find("encoding") == std::string_view::npos ||
         declaration.find("UTF-8") != std::string_view::npos ||
         declaration.find("utf-8") != std::string_view::npos;
}

Tree parseText(xmlParserCtxtPtr parser, const std::string& text) {
  if (!isPlainUtf8(text)) {
    const auto size = static_cast<int>(text.size());
    return Tree(xmlCtxtReadMemory(parser, text.data(), size, nullptr, nullptr, options));
  }
  xmlParserInputPtr input = made(xmlNewStringInputStream(parser, asXml(text.c_str())));
  inputPush(parser, input);
  xmlParseDocument(parser);
  return Tree(std::exchange(parser->myDoc, nullptr));
}

bool isWhiteSpace(const xmlChar* text) {
  for (; *text != 0; ++text) {
    if (*text != 0x20 && *text != 0x9 && *text != 0xA && *text != 0xD) return false;
  }
  return true;
}

xmlNodePtr nextInTree(xmlNodePtr node) {
  while (node != nullptr && node->next == nullptr) node = node->parent;
  return node != nullptr ? node->next : nullptr;
}

void removeWhiteSpaceText(xmlDocPtr document) {
  xmlNodePtr node = document->children;
  while (node != nullptr) {
    const bool descend = node->type == XML_ELEMENT_NODE && node->children != nullptr;
    const xmlNodePtr next = descend ? node->children : nextInTree(node);
    if (node->type == XML_TEXT_NODE && isWhiteSpace(node->content)) {
      xmlUnlinkNode(node);
      xmlFreeNode(node);
    }
    node = next;
  }
}

void describe(xmlParserCtxtPtr parser, ParseFailure& failure) {
  if (parser->_private != nullptr) {
    failure.reason = doctypeRefused;
    return;
  }
  const xmlErrorPtr error = xmlCtxtGetLastError(parser);
  if (error == nullptr) return;
  failure.line = error->line;
  failure.column = error->int2;
  std::string reason = error->message != nullptr ? error->message : "not well-formed";
  while (!reason.empty() && reason.back() == '\n') reason.pop_back();
  failure.reason = text::fromUtf8(reason);
}

}  // namespace

void initialiseLibrary() {
  static const bool initialised = [] {
    xmlInitParser();
    return true;
  }();
  static_cast<void>(initialised);
}

Document Document::parse(const std::string& text, ParseFailure* failure) {
  ParseFailure ignored;
  ParseFailure& why = failure != nullptr ? *failure : ignored;
  why.reason = refusalBeforeParsing(text);
  if (!why.reason.empty()) return {};
  initialiseLibrary();
  const ParserContext parser(made(xmlNewParserCtxt()));
  xmlCtxtUseOptions(parser.get(), options);
  parser->sax->internalSubset = refuseDoctype;
  Tree tree = parseText(parser.get(), text);
  const bool isWellFormed = parser->wellFormed != 0 && parser->nsWellFormed != 0;
  if (!isWellFormed || parser->_private != nullptr || tree == nullptr) {
    describe(parser.get(), why);
    return {};
  }
  removeWhiteSpaceText(tree.get());
  auto owner = std::make_unique<SharedDocument>(std::move(tree));
  return NodeAccess::makeDocument(owner.release());
}

}  // namespace ktpnaips::xml
