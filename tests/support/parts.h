#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/platform/xml.h>

#include <string>
#include <string_view>

#include "tests/support/soap.h"

/// What request parts write under the element that their owner makes for them.
namespace ktpnaips::test {

/// The element "ndd:part" after `part` has filled it, without its namespace declaration.
inline std::string written(const IAppendable& part) {
  const xml::Document document = xml::Document::create();
  const std::wstring schema = Deployment::current().schemaNamespace;
  part.appendTo(modBrevank::addElement(document, L"part", schema), schema);
  std::string text = document.serialise();
  const std::string declaration = nddDeclaration();
  return text.erase(text.find(declaration), declaration.size());
}

/// The first element of that name that the part writes, with its tags; empty when it writes none.
inline std::string writtenElement(const IAppendable& part, const std::string& name) {
  const std::string text = written(part);
  const auto from = text.find("<ndd:" + name);
  if (from == std::string::npos) return {};
  const std::string end = "</ndd:" + name + ">";
  const auto to = text.find(end, from);
  if (to == std::string::npos) return text.substr(from, text.find('>', from) + 1 - from);
  return text.substr(from, to + end.size() - from);
}

/// The element that `written` gives for a part that writes this.
inline std::string part(std::string_view content) {
  return "<ndd:part>" + std::string(content) + "</ndd:part>";
}

/// The element that `written` gives for a part that writes nothing.
inline constexpr std::string_view nothingWritten = "<ndd:part/>";

/// The document of an unset account's request that holds this.
inline std::string requestWith(std::string_view elementName, std::string_view content) {
  if (content.empty()) return requestEnvelope(requestStart(elementName) + "/>");
  return requestEnvelope(requestStart(elementName) + ">" + std::string(content) +
                         "</ndd:" + std::string(elementName) + ">");
}

}  // namespace ktpnaips::test
