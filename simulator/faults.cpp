#include "simulator/faults.h"

#include <algorithm>
#include <string>
#include <utility>

#include "simulator/element.h"
#include "simulator/soap.h"

namespace sim {
namespace {

constexpr std::size_t megabyte = 1024 * 1024;

Delivery send(std::string body, const FaultContext& context) {
  Answer answer;
  answer.body = std::move(body);
  return deliver(answer, context.keepAlive);
}

Delivery sendPlain(std::string_view contentType, std::string body, const FaultContext& context) {
  Answer answer;
  answer.contentType = contentType;
  answer.body = std::move(body);
  return deliver(answer, context.keepAlive);
}

// A whole envelope; attributes begin with a blank, content is XML.
std::string briefing(const FaultContext& context, std::string_view attributes,
                     std::string_view content) {
  std::string body = "<naips:briefing-rsp xmlns:naips=\"" + escapeXml(context.schemaNamespace);
  body.append("\"").append(attributes).append("><naips:content>").append(content);
  return soapEnvelope(body.append("</naips:content></naips:briefing-rsp>"));
}

Delivery closeAfterRequest(const Answer&, const FaultContext&) {
  return {{}, Ending::close};
}

Delivery resetAfterRequest(const Answer&, const FaultContext&) {
  return {{}, Ending::reset};
}

// Half of the XML, so that it breaks off inside.
std::string headAndHalf(const Answer& answer) {
  return httpHead(answer, answer.body.size(), false) +
         answer.body.substr(0, answer.body.size() / 2);
}

Delivery truncateBody(const Answer& answer, const FaultContext&) {
  return {headAndHalf(answer), Ending::close};
}

Delivery shortBody(const Answer& answer, const FaultContext&) {
  return {httpHead(answer, answer.body.size() + 1000, false) + answer.body, Ending::close};
}

Delivery stallHeaders(const Answer&, const FaultContext&) {
  return {"HTTP/1.1 200 OK\r\nContent-Type: text/", Ending::stall};
}

Delivery stallBody(const Answer& answer, const FaultContext&) {
  return {headAndHalf(answer), Ending::stall};
}

Delivery http500(const Answer&, const FaultContext& context) {
  Answer answer;
  answer.status = 500;
  answer.body = soapAnswer(SoapFault("Server", "The service is out of order"));
  return deliver(answer, context.keepAlive);
}

Delivery html200(const Answer&, const FaultContext& context) {
  return sendPlain("text/html; charset=utf-8",
                   "<!DOCTYPE html>\n<html><head><title>NAIPS</title></head><body>"
                   "<p>The service is down for maintenance.<br></body></html>\n",
                   context);
}

Delivery notXml(const Answer&, const FaultContext& context) {
  return send("The service is busy, try again later.\n", context);
}

Delivery noSoap(const Answer&, const FaultContext& context) {
  return send("<?xml version=\"1.0\"?>\n<service><state>busy</state></service>", context);
}

Delivery noStatus(const Answer&, const FaultContext& context) {
  return send(briefing(context, "", "NIL"), context);
}

Delivery emptyBody(const Answer&, const FaultContext& context) {
  return send({}, context);
}

Delivery docType(const Answer& answer, const FaultContext& context) {
  std::string body = answer.body;
  const std::size_t declarationEnd = body.find("?>");
  const std::size_t at = declarationEnd == std::string::npos ? 0 : declarationEnd + 2;
  body.insert(at, "<!DOCTYPE Envelope [<!ENTITY a \"lol\"><!ENTITY b \"&a;&a;&a;&a;&a;\">]>");
  return send(std::move(body), context);
}

Delivery badUtf8(const Answer&, const FaultContext& context) {
  return send(briefing(context, " status=\"SUCCESS\"", "WIND 240\xC2 DEGREES \xFF\xC3("), context);
}

Delivery manyAttributes(const Answer&, const FaultContext& context) {
  std::string attributes = " status=\"SUCCESS\"";
  for (int i = 0; i < 1'000'000; ++i) {
    attributes.append(" a").append(std::to_string(i)).append("=\"\"");
  }
  return send(briefing(context, attributes, "NIL"), context);
}

// Once: who follows finds nothing there.
Delivery redirect(const Answer& whole, const FaultContext& context) {
  if (whole.status == 404) return deliver(whole, context.keepAlive);
  Answer answer = plainAnswer(302, "The service has moved");
  answer.headers.emplace_back("Location", "/moved/briefing-service");
  return deliver(answer, context.keepAlive);
}

Delivery bigText(const Answer&, const FaultContext& context) {
  std::string text;
  text.reserve(30 * megabyte + 100);
  while (text.size() < 30 * megabyte) {
    text.append("TAF YSSY 200500Z 2006/2112 24012KT 9999 SCT030 BKN045 WITH CR LF LINES\r\n");
  }
  return send(briefing(context, " status=\"SUCCESS\"", text), context);
}

constexpr Fault table[] = {
    {"close-after-request", "reads the whole request, then closes without an answer",
     closeAfterRequest},
    {"reset-after-request", "reads the whole request, then resets the connection",
     resetAfterRequest},
    {"truncate-body", "closes in the middle of the XML", truncateBody},
    {"short-body", "sends the whole XML, but fewer bytes than its Content-Length", shortBody},
    {"stall-headers", "falls silent in the middle of the headers", stallHeaders},
    {"stall-body", "falls silent in the middle of the XML", stallBody},
    {"http-500", "a SOAP fault with HTTP status 500", http500},
    {"html-200", "an HTML page with HTTP status 200", html200},
    {"not-xml", "plain text declared as XML", notXml},
    {"no-soap", "XML that is no SOAP envelope", noSoap},
    {"no-status", "a payload without the attribute status", noStatus},
    {"empty-body", "an answer of no bytes", emptyBody},
    {"doctype", "the answer with a document type declaration", docType},
    {"bad-utf8", "content that is not valid UTF-8", badUtf8},
    {"many-attributes", "a payload with a million attributes", manyAttributes},
    {"redirect", "HTTP status 302 to another path", redirect},
    {"big-text", "a briefing of 30 MB", bigText},
};

}  // namespace

std::span<const Fault> faults() {
  return table;
}

const Fault* findFault(std::string_view name) {
  const Fault* found = std::ranges::find(table, name, &Fault::name);
  return found == std::end(table) ? nullptr : found;
}

}  // namespace sim
