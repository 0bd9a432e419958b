#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/posix/xml_memory.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_refusal.h>

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/threads.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <utility>

namespace ktpnaips::xml {
namespace {

using ParserContext = std::unique_ptr<xmlParserCtxt, FreeWith<xmlFreeParserCtxt>>;

// Without entities in place, libxml2 keeps "&#38;" in a namespace's URI; there are none of a
// document's own, since a document type declaration is refused.
constexpr int options = XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_NOERROR |
                        XML_PARSE_NOWARNING | XML_PARSE_COMPACT;

// What libxml2 searches one by one, so that time does not grow with the square of the text: the
// levels around an element and the namespaces declared there for each prefix, a table of fixed size
// for each name.
constexpr int mostLevels = 1000;
constexpr int mostNamespaces = 1000;
constexpr std::size_t memoryForNames = std::size_t{256} * 1024;

/// What shows while a text is parsed.
struct Findings {
  std::wstring_view refusal;  ///< why the parser has been stopped
  bool whiteSpace = false;    ///< a piece of text that is white space only
};

Findings& findingsOf(xmlParserCtxtPtr parser) {
  return *static_cast<Findings*>(parser->_private);
}

void refuse(xmlParserCtxtPtr parser, std::wstring_view reason) {
  findingsOf(parser).refusal = reason;
  xmlStopParser(parser);
}

void keepSilent(void*, xmlErrorPtr) {}

/// Stops at a document type declaration in an encoding that only the parser can read.
void refuseDoctype(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
  refuse(static_cast<xmlParserCtxtPtr>(context), doctypeRefused);
}

void startElement(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                  int namespaceCount, const xmlChar** namespaces, int attributeCount,
                  int defaultedCount, const xmlChar** attributes) {
  auto* parser = static_cast<xmlParserCtxtPtr>(context);
  if (parser->nodeNr >= mostLevels) {
    refuse(parser, L"elements are nested more than 1,000 deep");
  } else if (parser->nsNr > 2 * mostNamespaces) {  // a prefix and a URI for each
    refuse(parser, L"more than 1,000 namespaces are declared at a time");
  } else {
    xmlSAX2StartElementNs(context, name, prefix, uri, namespaceCount, namespaces, attributeCount,
                          defaultedCount, attributes);
  }
}

bool isWhiteSpace(std::string_view text) {
  return std::ranges::all_of(
      text, [](char c) { return c == '\x20' || c == '\x9' || c == '\xA' || c == '\xD'; });
}

void addText(void* context, const xmlChar* text, int length) {
  const std::string_view piece(asChars(text), static_cast<std::size_t>(length));
  if (isWhiteSpace(piece)) findingsOf(static_cast<xmlParserCtxtPtr>(context)).whiteSpace = true;
  xmlSAX2Characters(context, text, length);
}

/// True when libxml2 can read the text where it lies: UTF-8 without a declaration that it would
/// have to look into. A NUL is either refused or shows an encoding at the start.
bool isPlainUtf8(std::string_view text) {
  const bool marked = text.starts_with("\xFE\xFF") || text.starts_with("\xFF\xFE") ||
                      text.starts_with("\xEF\xBB\xBF") ||
                      text.substr(0, 4).find('\0') != std::string_view::npos;
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
  xmlParserInputPtr input = made(xmlNewInputStream(parser));
  input->base = input->cur = asXml(text.c_str());
  input->end = input->base + text.size();
  inputPush(parser, input);
  xmlParseDocument(parser);
  return Tree(std::exchange(parser->myDoc, nullptr));
}

void removeWhiteSpaceText(xmlDocPtr document) {
  xmlNodePtr node = document->children;
  while (node != nullptr) {
    const xmlNodePtr next = following(node);
    if (node->type == XML_TEXT_NODE && isWhiteSpace(asChars(node->content))) {
      xmlUnlinkNode(node);
      xmlFreeNode(node);
    }
    node = next;
  }
}

void describe(xmlParserCtxtPtr parser, ParseFailure& failure) {
  if (xmlDictGetUsage(parser->dict) > memoryForNames) {
    failure.reason = L"the names of elements and attributes are too many or too long";
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

/// libxml2 keeps a state for each thread, and goes on without one, or without an end, when there
/// is no memory for it.
void prepareThread() {
  thread_local bool isPrepared = false;
  if (isPrepared) return;
  std::free(made(std::malloc(sizeof(xmlGlobalState))));  // so much of it is free
  made(xmlGetGlobalState());
  isPrepared = true;
}

}  // namespace

void initialiseLibrary() {
  static const bool initialised = [] {
    watchMemory();
    const MemoryWatch watch;
    xmlInitParser();
    watch.check();  // and once more with the next call
    return true;
  }();
  static_cast<void>(initialised);
  prepareThread();
}

Document Document::parse(const std::string& text, ParseFailure* failure) {
  ParseFailure ignored;
  ParseFailure& why = failure != nullptr ? *failure : ignored;
  why.reason = refusalBeforeParsing(text);
  if (!why.reason.empty()) return {};
  initialiseLibrary();
  const MemoryWatch watch;
  const ParserContext parser(made(xmlNewParserCtxt()));
  xmlCtxtUseOptions(parser.get(), options);
  Findings findings;
  parser->_private = &findings;
  parser->sax->internalSubset = refuseDoctype;
  parser->sax->serror = keepSilent;  // it would print what it failed at, whatever the options
  parser->sax->startElementNs = startElement;
  parser->sax->characters = parser->sax->ignorableWhitespace = addText;
  parser->loadsubset |= XML_SKIP_IDS;
  xmlDictSetLimit(parser->dict, memoryForNames);
  Tree tree = parseText(parser.get(), text);
  if (!findings.refusal.empty()) {
    why.reason = findings.refusal;
    return {};
  }
  if (xmlDictGetUsage(parser->dict) <= memoryForNames) watch.check();
  const bool isWellFormed = parser->wellFormed != 0 && parser->nsWellFormed != 0;
  if (!isWellFormed || parser->disableSAX != 0 || tree == nullptr) {
    describe(parser.get(), why);
    return {};
  }
  if (findings.whiteSpace) removeWhiteSpaceText(tree.get());
  auto owner = std::make_unique<SharedDocument>(std::move(tree));
  return NodeAccess::makeDocument(owner.release());
}

}  // namespace ktpnaips::xml
