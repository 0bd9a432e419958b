#include "simulator/soap.h"

#include <utility>
#include <vector>

namespace sim {
namespace {

bool isSoap(const XmlView& element, std::string_view name) {
  return element.name() == name && element.namespaceUri() == soapNamespace;
}

void checkEnvelope(const XmlView& root) {
  if (root.name() != "Envelope") {
    throw SoapFault("Client", "The document element is " + root.name() + ", not a SOAP Envelope");
  }
  if (!isSoap(root, "Envelope")) {
    throw SoapFault("VersionMismatch", "The envelope's namespace is \"" + root.namespaceUri() +
                                           "\"; this service speaks SOAP 1.1");
  }
}

}  // namespace

XmlView requestElement(const XmlDocument& envelope) {
  checkEnvelope(envelope.root());
  const std::vector<XmlView> parts = envelope.root().children();
  if (parts.empty() || !isSoap(parts.back(), "Body") || parts.size() > 2 ||
      (parts.size() == 2 && !isSoap(parts.front(), "Header"))) {
    throw SoapFault("Client", "The SOAP envelope needs one Body, after at most one Header");
  }
  const std::vector<XmlView> requests = parts.back().children();
  if (requests.empty()) {
    throw SoapFault("Client", "The SOAP body holds no request element");
  }
  if (requests.size() > 1) {
    throw SoapFault("Client", "The SOAP body holds " + std::to_string(requests.size()) +
                                  " elements instead of one request element");
  }
  return requests.front();
}

std::string soapAnswer(const Element& payload, std::string_view schemaNamespace) {
  std::string body;
  payload.write(body, " xmlns:naips=\"" + escapeXml(schemaNamespace) + "\"");
  return soapEnvelope(body);
}

std::string soapAnswer(const SoapFault& fault) {
  return soapEnvelope("<soap:Fault><faultcode>soap:" + fault.code + "</faultcode><faultstring>" +
                      escapeXml(fault.what()) + "</faultstring></soap:Fault>");
}

std::string soapEnvelope(std::string_view body) {
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<soap:Envelope xmlns:soap=\"";
  text.append(soapNamespace).append("\"><soap:Body>").append(body);
  return text.append("</soap:Body></soap:Envelope>");
}

}  // namespace sim
