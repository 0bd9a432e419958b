#include "simulator/xml.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <limits>

namespace sim {
namespace {

std::string toString(const xmlChar* text) {
  return text == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(text));
}

std::string takeString(xmlChar* text) {
  std::string result = toString(text);
  xmlFree(text);
  return result;
}

const xmlChar* toXml(const std::string& text) {
  return reinterpret_cast<const xmlChar*>(text.c_str());
}

std::string withoutLineEnd(std::string text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
    text.pop_back();
  }
  return text;
}

struct Findings {
  std::string first;  // the first error: the parser goes on after some
  bool hasDocumentType = false;
};

Findings& findingsOf(void* context) {
  return *static_cast<Findings*>(static_cast<xmlParserCtxt*>(context)->_private);
}

// The error is const from libxml2 2.12 on.
template <class Error>
void keepFirst(void* context, Error* error) {
  std::string& first = findingsOf(context).first;
  if (first.empty() && error->message != nullptr) {
    first = "line " + std::to_string(error->line) + ": " + withoutLineEnd(error->message);
  }
}

// From here on nothing is declared, expanded or built any more.
void refuseDocumentType(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
  Findings& findings = findingsOf(context);
  findings.first = "line " + std::to_string(xmlSAX2GetLineNumber(context)) +
                   ": a document type declaration is not allowed";
  findings.hasDocumentType = true;
  xmlStopParser(static_cast<xmlParserCtxt*>(context));
}

}  // namespace

std::string XmlView::name() const {
  return toString(node_->name);
}

std::string XmlView::namespaceUri() const {
  return node_->ns == nullptr ? std::string() : toString(node_->ns->href);
}

std::string XmlView::text() const {
  return takeString(xmlNodeGetContent(node_));
}

std::string XmlView::attribute(std::string_view name) const {
  return takeString(xmlGetNoNsProp(node_, toXml(std::string(name))));
}

bool XmlView::flag(std::string_view name) const {
  return attribute(name) == "true";
}

bool XmlView::has(std::string_view childName) const {
  return child(childName).has_value();
}

std::vector<XmlView> XmlView::children() const {
  std::vector<XmlView> result;
  for (xmlNode* node = xmlFirstElementChild(node_); node != nullptr;
       node = xmlNextElementSibling(node)) {
    result.emplace_back(node);
  }
  return result;
}

std::vector<XmlView> XmlView::children(std::string_view name) const {
  std::vector<XmlView> result = children();
  std::erase_if(result, [&](const XmlView& view) { return view.name() != name; });
  return result;
}

std::optional<XmlView> XmlView::child(std::string_view name) const {
  const std::vector<XmlView> found = children(name);
  return found.empty() ? std::nullopt : std::optional(found.front());
}

std::string XmlView::childText(std::string_view name) const {
  const std::optional<XmlView> found = child(name);
  return found ? found->text() : std::string();
}

std::vector<std::string> XmlView::childTexts(std::string_view name) const {
  std::vector<std::string> result;
  for (const XmlView& view : children(name)) {
    result.push_back(view.text());
  }
  return result;
}

void XmlDocument::Free::operator()(_xmlDoc* document) const {
  xmlFreeDoc(document);
}

XmlDocument XmlDocument::parse(std::string_view text) {
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    throw XmlError("the document is too long");
  }
  const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> context(xmlNewParserCtxt(),
                                                                             &xmlFreeParserCtxt);
  Findings findings;
  context->_private = &findings;
  context->sax->serror = keepFirst;
  context->sax->internalSubset = refuseDocumentType;
  XmlDocument result;
  // NOENT: the parser would leave "&amp;" as it stands in namespace names.
  result.document_.reset(xmlCtxtReadMemory(
      context.get(), text.data(), static_cast<int>(text.size()), nullptr, nullptr,
      XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
  if (!result.document_ || findings.hasDocumentType) {
    throw XmlError(findings.first);
  }
  return result;
}

XmlView XmlDocument::root() const {
  return XmlView(xmlDocGetRootElement(document_.get()));
}

}  // namespace sim
