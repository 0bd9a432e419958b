#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "simulator/element.h"
#include "simulator/xml.h"

namespace sim {

inline constexpr std::string_view soapNamespace = "http://schemas.xmlsoap.org/soap/envelope/";

// Answered as a SOAP 1.1 fault.
struct SoapFault : std::runtime_error {
  SoapFault(std::string faultCode, const std::string& text)
      : std::runtime_error(text), code(std::move(faultCode)) {}

  std::string code;  // "Client", "Server" or "VersionMismatch"
};

// The request element of an envelope; throws SoapFault when there is not exactly one.
XmlView requestElement(const XmlDocument& envelope);

std::string soapAnswer(const Element& payload, std::string_view schemaNamespace);
std::string soapAnswer(const SoapFault& fault);

// An envelope around a body that is written already.
std::string soapEnvelope(std::string_view body);

}  // namespace sim
