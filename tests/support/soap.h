#pragma once

#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/response.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>

#include <stdexcept>
#include <string>
#include <string_view>

/// SOAP documents as they stand on the wire. Answers use the prefixes "s" (envelope) and "n" (NAIPS
/// schema), which are not those that the library uses.
namespace ktpnaips::test {

inline std::string schemaNamespace() {
  return text::toUtf8(Deployment::current().schemaNamespace);
}

/// The declaration that the first element of a request carries, with a space in front.
inline std::string nddDeclaration() {
  return " xmlns:ndd=\"" + schemaNamespace() + '"';
}

/// The whole request document around the request element.
inline std::string requestEnvelope(std::string_view requestElement) {
  return "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\">"
         "<SOAP-ENV:Body>" +
         std::string(requestElement) + "</SOAP-ENV:Body></SOAP-ENV:Envelope>";
}

/// The start of a request element of an unset account, up to where its children follow.
inline std::string requestStart(std::string_view elementName) {
  return "<ndd:" + std::string(elementName) + nddDeclaration() +
         " source=\"orvalix\" requestor=\"\" password=\"\"";
}

/// An answer document whose SOAP body holds `payload`.
inline std::string answer(std::string_view payload) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
         "<s:Envelope xmlns:s=\"http://schemas.xmlsoap.org/soap/envelope/\" xmlns:n=\"" +
         schemaNamespace() + "\"><s:Body>" + std::string(payload) + "</s:Body></s:Envelope>";
}

/// An answer of the service that succeeded, with these children of the answer element.
inline std::string success(std::string_view children) {
  return answer("<n:answer status=\"SUCCESS\">" + std::string(children) + "</n:answer>");
}

inline xml::Document parsed(const std::string& document) {
  const xml::Document result = xml::Document::parse(document);
  if (!result) throw std::invalid_argument("not well-formed: " + document);
  return result;
}

/// Gives the response an answer as the poster does.
inline void load(AbstractResponse& response, const std::string& document) {
  response.ResponseDoc(parsed(document));
}

}  // namespace ktpnaips::test
