#include "floor.h"

#include <fcntl.h>
#include <libxml/parser.h>
#include <libxml/xmlsave.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace hand {
namespace {

constexpr const char* schema = "http://bench.example/naips/xsd";
constexpr const char* soap = "http://schemas.xmlsoap.org/soap/envelope/";

void check(bool good, const char* what) {
  if (good) return;
  std::fprintf(stderr, "%s failed\n", what);
  std::exit(1);
}

const xmlChar* xml(const char* text) {
  return reinterpret_cast<const xmlChar*>(text);
}

struct Free {
  void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
  void operator()(xmlXPathContext* context) const { xmlXPathFreeContext(context); }
  void operator()(xmlXPathObject* result) const { xmlXPathFreeObject(result); }
  void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
  void operator()(xmlChar* text) const { xmlFree(text); }
};

template <class T>
using Owned = std::unique_ptr<T, Free>;

std::string textOf(xmlNode* node) {
  const Owned<xmlChar> text(xmlNodeGetContent(node));
  return text == nullptr ? "" : reinterpret_cast<const char*>(text.get());
}

/// An answer: its DOM and one XPath context on it.
class Answer {
 public:
  explicit Answer(const std::string& body)
      : document_(xmlReadMemory(body.data(), static_cast<int>(body.size()), nullptr, nullptr,
                                XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_NOBLANKS)),
        context_(xmlXPathNewContext(document_.get())) {
    check(document_ != nullptr, "Parsing");
    xmlXPathRegisterNs(context_.get(), xml("soap"), xml(soap));
    xmlXPathRegisterNs(context_.get(), xml("naips"), xml(schema));
    const std::vector<xmlNode*> payload = select("/soap:Envelope/soap:Body/*");
    check(payload.size() == 1, "The call");
    const Owned<xmlChar> status(xmlGetProp(payload.front(), xml("status")));
    check(status != nullptr && xmlStrEqual(status.get(), xml("SUCCESS")) != 0, "The call");
    payload_ = payload.front();
  }

  std::vector<xmlNode*> select(const char* expression, xmlNode* from = nullptr) {
    context_->node = from;
    const Owned<xmlXPathObject> result(xmlXPathEvalExpression(xml(expression), context_.get()));
    const xmlNodeSet* nodes = result->nodesetval;
    if (nodes == nullptr) return {};
    return {nodes->nodeTab, nodes->nodeTab + nodes->nodeNr};
  }

  std::string text(const char* expression, xmlNode* from) {
    const std::vector<xmlNode*> found = select(expression, from);
    return found.empty() ? "" : textOf(found.front());
  }

  [[nodiscard]] xmlNode* payload() const { return payload_; }

 private:
  Owned<xmlDoc> document_;
  Owned<xmlXPathContext> context_;
  xmlNode* payload_ = nullptr;
};

constexpr std::uint32_t noDigit = 1U << 31U;

/// The bits of a Base64 digit at each of the four places of a group.
constexpr std::array<std::array<std::uint32_t, 256>, 4> makeTables() {
  std::array<std::array<std::uint32_t, 256>, 4> tables{};
  for (auto& table : tables) table.fill(noDigit);
  std::uint32_t value = 0;
  for (const char c :
       std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")) {
    for (unsigned place = 0; place < 4; ++place) {
      tables[place][static_cast<unsigned char>(c)] = value << (18U - 6U * place);
    }
    ++value;
  }
  return tables;
}

constexpr auto tables = makeTables();

/// Plain Base64, whole groups between line ends; stops at the padding.
std::string decode(const xmlChar* text) {
  std::string bytes(static_cast<std::size_t>(xmlStrlen(text)) / 4 * 3 + 3, '\0');
  std::size_t size = 0;
  for (;;) {
    while (*text == '\r' || *text == '\n') ++text;
    if (*text == 0) break;
    std::uint32_t group = tables[0][text[0]] | tables[1][text[1]];
    const bool isLast = text[2] == '=' || text[3] == '=';
    const std::size_t count = text[2] == '=' ? 1 : isLast ? 2 : 3;
    if (count > 1) group |= tables[2][text[2]];
    if (count > 2) group |= tables[3][text[3]];
    check(group < noDigit, "Decoding");
    bytes[size] = static_cast<char>(group >> 16U);
    bytes[size + 1] = static_cast<char>(group >> 8U & 0xFFU);
    bytes[size + 2] = static_cast<char>(group & 0xFFU);
    size += count;
    if (isLast) break;
    text += 4;
  }
  bytes.resize(size);
  return bytes;
}

/// Writes a new file under the first free number.
std::string writeNew(const std::string& folder, const std::string& type, const std::string& bytes) {
  std::string path;
  int file = -1;
  for (int number = 1; file < 0 && number < 1000; ++number) {
    path = folder + "/NAIPS" + std::to_string(number) + "." + type;
    file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0644);
  }
  check(::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), "Writing");
  ::close(file);
  return path;
}

std::size_t receive(char* data, std::size_t size, std::size_t count, void* body) {
  static_cast<std::string*>(body)->append(data, size * count);
  return size * count;
}

xmlNode* add(xmlNode* parent, const char* name, const char* text = nullptr) {
  return xmlNewTextChild(parent, nullptr, xml(name), text == nullptr ? nullptr : xml(text));
}

void addAll(xmlNode* parent, const std::vector<Item>& items) {
  for (const auto& [name, text] : items) add(parent, name, text.c_str());
}

void setAll(xmlNode* element, const std::vector<Item>& attributes) {
  for (const auto& [name, text] : attributes) xmlSetProp(element, xml(name), xml(text.c_str()));
}

void addSupplementary(xmlNode* parent, const Stage& stage) {
  xmlNode* info = add(parent, "suppl-info");
  addAll(info, stage.people);
  setAll(add(info, "radios"), stage.radios);
  setAll(add(info, "survival"), stage.survival);
  setAll(add(info, "jackets"), stage.jackets);
  addAll(add(info, "dinghies"), stage.dinghies);
  addAll(info, stage.remarks);
  xmlNode* pilot = add(info, "pilot");
  xmlSetProp(pilot, xml("name"), xml(stage.pilot.c_str()));
  xmlSetProp(pilot, xml("phone"), xml(stage.phone.c_str()));
}

void addStage(xmlNode* parent, const Stage& stage, std::size_t number) {
  xmlNode* element = add(parent, "stage");
  xmlSetProp(element, xml("number"), xml(std::to_string(number).c_str()));
  addAll(element, stage.flight);
  xmlNode* route = add(element, "route");
  addAll(route, stage.route);
  for (const auto& segment : stage.segments) addAll(add(route, "segment"), segment);
  add(element, "reg", stage.registration.c_str());
  addAll(add(element, "other-info"), stage.otherInfo);
  addSupplementary(element, stage);
}

}  // namespace

Client::Client(const std::string& connectTo, const std::string& caFile)
    : easy_(curl_easy_init()),
      headers_(curl_slist_append(nullptr, "Content-Type: text/xml; charset=utf-8")),
      connectTo_(curl_slist_append(nullptr, ("::" + connectTo).c_str())) {
  check(curl_slist_append(headers_.get(), "Expect:") != nullptr, "Allocating");
  CURL* easy = easy_.get();
  curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers_.get());
  curl_easy_setopt(easy, CURLOPT_CONNECT_TO, connectTo_.get());
  curl_easy_setopt(easy, CURLOPT_PROXY, "");
  curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
  curl_easy_setopt(easy, CURLOPT_CAINFO, caFile.c_str());
  curl_easy_setopt(easy, CURLOPT_CAPATH, static_cast<const char*>(nullptr));
  curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, 0L);
  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &receive);
}

std::string Client::post(const std::string& url, const std::string& document) {
  std::string body;
  CURL* easy = easy_.get();
  curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
  curl_easy_setopt(easy, CURLOPT_POSTFIELDSIZE, static_cast<long>(document.size()));
  curl_easy_setopt(easy, CURLOPT_POSTFIELDS, document.c_str());
  curl_easy_setopt(easy, CURLOPT_WRITEDATA, &body);
  const CURLcode code = curl_easy_perform(easy);
  check(code == CURLE_OK, curl_easy_strerror(code));
  return body;
}

namespace {

/// A request with the account and items of its own.
std::string request(const char* name, const std::vector<Item>& items) {
  const Owned<xmlDoc> document(xmlNewDoc(xml("1.0")));
  xmlNode* envelope = xmlNewDocNode(document.get(), nullptr, xml("Envelope"), nullptr);
  xmlDocSetRootElement(document.get(), envelope);
  xmlSetNs(envelope, xmlNewNs(envelope, xml(soap), xml("SOAP-ENV")));
  xmlNode* body = add(envelope, "Body");
  xmlNode* element = add(body, name);
  xmlSetNs(element, xmlNewNs(element, xml(schema), xml("ndd")));
  setAll(element, {{"source", "orvalix"}, {"requestor", "PILOT1"}, {"password", "secret"}});
  addAll(element, items);
  const Owned<xmlBuffer> buffer(xmlBufferCreate());
  xmlSaveCtxt* save = xmlSaveToBuffer(buffer.get(), "UTF-8", XML_SAVE_NO_DECL);
  xmlSaveTree(save, envelope);
  xmlSaveClose(save);
  return reinterpret_cast<const char*>(xmlBufferContent(buffer.get()));
}

}  // namespace

Login Client::login(const std::string& url) {
  Answer answer(post(url, request("authenticate-rqs", {})));
  xmlNode* from = answer.payload();
  return {answer.text("naips:name", from), answer.text("naips:motd", from),
          answer.text("naips:email", from), answer.text("naips:scheduling", from),
          answer.text("naips:avfax-id", from)};
}

Briefing Client::briefing(const std::string& url, const std::string& folder) {
  Answer answer(post(url, request("loc-brief-rqs", {{"loc", "YSSY"}})));
  Briefing briefing{answer.text("naips:content", answer.payload()), {}};
  for (xmlNode* product : answer.select("naips:product", answer.payload())) {
    const Owned<xmlChar> type(xmlGetProp(product, xml("type")));
    const Owned<xmlChar> content(
        xmlNodeGetContent(answer.select("naips:content", product).front()));
    const std::string bytes = decode(content.get());
    briefing.files.push_back(writeNew(folder, reinterpret_cast<const char*>(type.get()), bytes));
  }
  return briefing;
}

std::vector<Route> Client::routes(const std::string& url) {
  Answer answer(post(url, request("route-dir-rqs", {{"adep", "YSSY"}, {"ades", "YMML"}})));
  std::vector<Route> routes;
  for (xmlNode* node : answer.select("naips:route", answer.payload())) {
    Route& route = routes.emplace_back();
    for (xmlNode* child = node->children; child != nullptr; child = child->next) {
      if (xmlStrEqual(child->name, xml("adep")) != 0) route.departure = textOf(child);
      if (xmlStrEqual(child->name, xml("ades")) != 0) route.destination = textOf(child);
      if (xmlStrEqual(child->name, xml("code")) != 0) route.code = textOf(child);
      if (xmlStrEqual(child->name, xml("description")) != 0) route.description = textOf(child);
    }
  }
  return routes;
}

std::string notification(const std::vector<Stage>& stages) {
  const Owned<xmlDoc> document(xmlNewDoc(xml("1.0")));
  xmlNode* envelope = xmlNewDocNode(document.get(), nullptr, xml("Envelope"), nullptr);
  xmlDocSetRootElement(document.get(), envelope);
  xmlSetNs(envelope, xmlNewNs(envelope, xml(soap), xml("SOAP-ENV")));
  xmlNode* element = add(add(envelope, "Body"), "submit-icao-fn-rqs");
  xmlSetNs(element, xmlNewNs(element, xml(schema), xml("ndd")));
  setAll(element, {{"source", "orvalix"},
                   {"requestor", "PILOT1"},
                   {"password", "secret"},
                   {"ignore-atyp-reg", "false"}});
  xmlNode* notification = add(element, "flight-notif");
  add(notification, "domestic", "true");
  std::size_t number = 0;
  for (const Stage& stage : stages) addStage(notification, stage, ++number);
  const Owned<xmlBuffer> buffer(xmlBufferCreate());
  xmlSaveCtxt* save = xmlSaveToBuffer(buffer.get(), "UTF-8", XML_SAVE_NO_DECL);
  xmlSaveTree(save, envelope);
  xmlSaveClose(save);
  return reinterpret_cast<const char*>(xmlBufferContent(buffer.get()));
}

void initialise() {
  curl_global_init(CURL_GLOBAL_DEFAULT);
  xmlInitParser();
}

}  // namespace hand
