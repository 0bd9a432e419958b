#include "simulator/schema.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlschemas.h>
#include <libxml/xmlschemastypes.h>

#include <stdexcept>
#include <utility>

#include "simulator/element.h"

namespace sim {
namespace {

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); !from.empty() && at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

XmlDocument parsePart(std::string_view part, std::string_view targetNamespace) {
  std::string text(part);
  replaceAll(text, "@SCHEMA_NAMESPACE@", escapeXml(targetNamespace));
  return XmlDocument::parse(text);
}

// The parts include one another by file name; here they are joined into one document instead.
void join(const XmlDocument& schema, const XmlDocument& part) {
  for (const XmlView& child : part.root().children()) {
    if (child.name() != "include") {
      xmlAddChild(schema.root().node(), xmlDocCopyNode(child.node(), schema.get(), 1));
    }
  }
}

struct Findings {
  std::string first;
  std::string namespacePrefix;  // "{uri}", left out of the texts
};

// The error is const from libxml2 2.12 on.
template <class Error>
void note(void* data, Error* error) {
  Findings& findings = *static_cast<Findings*>(data);
  if (!findings.first.empty() || error->message == nullptr) {
    return;
  }
  std::string text(error->message);
  replaceAll(text, findings.namespacePrefix, "");
  replaceAll(text, "\n", "");
  findings.first = "line " + std::to_string(error->line) + ": " + text;
}

// libxml2 sets itself up on first use, but not when two threads do that at once.
void prepareLibrary() {
  [[maybe_unused]] static const bool done = [] {
    xmlInitParser();
    xmlSchemaInitTypes();
    return true;
  }();
}

}  // namespace

struct Schema::Impl {
  XmlDocument document;
  std::string targetNamespace;
  std::unique_ptr<xmlSchema, decltype(&xmlSchemaFree)> schema{nullptr, &xmlSchemaFree};
};

Schema::Schema(std::string_view targetNamespace) : impl_(std::make_unique<Impl>()) {
  prepareLibrary();
  impl_->targetNamespace = targetNamespace;
  for (const std::string_view text : schemaParts()) {
    XmlDocument part = parsePart(text, targetNamespace);
    if (impl_->document.get() == nullptr) {
      impl_->document = parsePart(
          "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\""
          " xmlns:naips=\"@SCHEMA_NAMESPACE@\""
          " targetNamespace=\"@SCHEMA_NAMESPACE@\""
          " elementFormDefault=\"qualified\"/>",
          targetNamespace);
    }
    join(impl_->document, part);
  }
  const std::unique_ptr<xmlSchemaParserCtxt, decltype(&xmlSchemaFreeParserCtxt)> parser(
      xmlSchemaNewDocParserCtxt(impl_->document.get()), &xmlSchemaFreeParserCtxt);
  Findings findings;
  xmlSchemaSetParserStructuredErrors(parser.get(), &note, &findings);
  impl_->schema.reset(xmlSchemaParse(parser.get()));
  if (!impl_->schema) {
    throw std::runtime_error("The request schema is broken: " + findings.first);
  }
}

Schema::~Schema() = default;

std::optional<std::string> Schema::check(const XmlView& request) const {
  const std::unique_ptr<xmlSchemaValidCtxt, decltype(&xmlSchemaFreeValidCtxt)> context(
      xmlSchemaNewValidCtxt(impl_->schema.get()), &xmlSchemaFreeValidCtxt);
  Findings findings{{}, "{" + impl_->targetNamespace + "}"};
  xmlSchemaSetValidStructuredErrors(context.get(), &note, &findings);
  const int result = xmlSchemaValidateOneElement(context.get(), request.node());
  if (result == 0) {
    return std::nullopt;
  }
  return findings.first.empty() ? "it does not fit the schema" : findings.first;
}

}  // namespace sim
