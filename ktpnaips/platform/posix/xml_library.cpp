#include <ktpnaips/platform/posix/xml_library.h>

#include <libxml/dict.h>
#include <libxml/globals.h>
#include <libxml/parserInternals.h>
#include <libxml/threads.h>
#include <libxml/xmlerror.h>

#include <cstddef>
#include <cstdlib>

namespace ktpnaips::xml {
namespace {

// Without entities in place, libxml2 keeps "&#38;" in a namespace's URI; there are none of a
// document's own, since a document type declaration is refused.
constexpr int options = XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_HUGE;

constexpr std::size_t memoryForNames = std::size_t{256} * 1024;

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

// Up to 2.13 a text is read in place when it is pushed as the parser's input, and the parser's
// parts are members; from 2.14 on there are functions for both.
#if LIBXML_VERSION < 21400

Parser parserFor(const xmlSAXHandler& handler, void* data) {
  Parser parser(made(xmlNewParserCtxt()));
  *parser->sax = handler;
  parser->userData = data;
  return parser;
}

xmlDictPtr namesOf(xmlParserCtxtPtr parser) {
  return parser->dict;
}

void parseInPlace(xmlParserCtxtPtr parser, std::string_view text) {
  const xmlParserInputPtr input = made(xmlNewStringInputStream(parser, asXml(text.data())));
  if (xmlPushInput(parser, input) >= 0) xmlParseDocument(parser);
}

#else

Parser parserFor(const xmlSAXHandler& handler, void* data) {
  return Parser(made(xmlNewSAXParserCtxt(&handler, data)));
}

xmlDictPtr namesOf(xmlParserCtxtPtr parser) {
  return xmlCtxtGetDict(parser);
}

void parseInPlace(xmlParserCtxtPtr parser, std::string_view text) {
  constexpr auto inPlace =
      static_cast<xmlParserInputFlags>(XML_INPUT_BUF_STATIC | XML_INPUT_BUF_ZERO_TERMINATED);
  xmlCtxtParseDocument(parser,
                       made(xmlNewInputFromMemory(nullptr, text.data(), text.size(), inPlace)));
}

#endif

/// libxml2 keeps a state for each thread; before 2.12 it goes on without one, or without an end,
/// when there is no memory for it.
void prepareThread() {
#if LIBXML_VERSION < 21200
  requireMemory(sizeof(xmlGlobalState));
  made(xmlGetGlobalState());
#else
  if (xmlCheckThreadLocalStorage() != 0) throw std::bad_alloc();
#endif
}

}  // namespace

void requireMemory(std::size_t size) {
  void* volatile const block = made(std::malloc(size));  // volatile: or nothing would be allocated
  std::free(block);
}

void initialiseLibrary() {
  static const bool isInitialised = [] {
    prepareThread();
    xmlResetLastError();
    xmlInitParser();
    const auto* const error = xmlGetLastError();
    if (error != nullptr && error->code == XML_ERR_NO_MEMORY) throw std::bad_alloc();
    return true;
  }();
  thread_local bool isPrepared = false;
  if (!isInitialised || isPrepared) return;
  prepareThread();
  isPrepared = true;
}

Parser newParser(const xmlSAXHandler& handler, void* data) {
  initialiseLibrary();
  Parser parser = parserFor(handler, data);
  xmlCtxtUseOptions(parser.get(), options);
  xmlDictSetLimit(namesOf(parser.get()), memoryForNames);
  return parser;
}

void parseText(xmlParserCtxtPtr parser, std::string_view text) {
  if (isPlainUtf8(text)) {
    parseInPlace(parser, text);
  } else {
    xmlCtxtReadMemory(parser, text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                      options);
  }
}

bool exceedsNames(xmlParserCtxtPtr parser) {
  return xmlDictGetUsage(namesOf(parser)) > memoryForNames;
}

}  // namespace ktpnaips::xml
