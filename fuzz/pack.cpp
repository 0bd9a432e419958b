#include <libxml/HTMLparser.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "canned_exchange.h"
#include "cli/application.h"
#include "fuzzing.h"
#include "scratch.h"
#include "standard_streams.h"

/// Hostile answers in a pack: the page has no script, no handler and no address but its own.
namespace {

constexpr std::string_view flight =
    R"({"Aircraft": "VHABC", "TAS": "N0100", "Stages": [{"Departing": "YSSY", "Destination": "YSCB",
        "ETD": "2026-12-01T22:00:00Z", "Route": {"RouteCode": "H1"}}]})";

std::string_view view(const xmlChar* text) {
  return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

void checkAttribute(const xmlAttr& attribute, std::string_view element) {
  const std::string_view name = view(attribute.name);
  xmlChar* const content = xmlNodeGetContent(attribute.children);
  const std::string value(view(content));
  xmlFree(content);
  fuzz::require(!name.starts_with("on"), "there is no handler");
  fuzz::require(value.find("url(") == value.npos || name != "style", "no style fetches anything");
  const bool isAddress = name == "href" || name == "src" || name == "action" || name == "data" ||
                         name == "srcset" || name == "poster" || name == "formaction";
  if (!isAddress) return;
  const bool isPicture = element == "img" && value.starts_with("data:image/");
  const bool isFile = element == "a" && value.starts_with("data:");
  fuzz::require(value.starts_with('#') || isPicture || isFile, "addresses are the page's own");
}

void check(const xmlNode* first) {
  for (const xmlNode* node = first; node != nullptr; node = node->next) {
    if (node->type != XML_ELEMENT_NODE) continue;
    const std::string_view name = view(node->name);
    for (const auto each : {"script", "iframe", "object", "embed", "base", "link", "form"}) {
      fuzz::require(name != each, "nothing runs and nothing is fetched");
    }
    for (const xmlAttr* each = node->properties; each != nullptr; each = each->next) {
      checkAttribute(*each, name);
    }
    check(node->children);
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Scratch scratch;
  static const std::string file = [] {
    std::string path = (scratch.temporary() / "flight.json").string();
    std::ofstream(path) << flight;
    return path;
  }();
  ::setenv("NAIPS_PASSWORD", "Zq7&<x9\"Vw", 1);
  fuzz::Input input(data, size);
  fuzz::cannedAnswer().body =
      "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/' xmlns:n='urn:n' "
      "xmlns='urn:n'><s:Body><n:rsp status='SUCCESS'>" +
      input.rest() + "</n:rsp></s:Body></s:Envelope>";
  std::string page;
  {
    const fuzz::StandardStreams streams;
    cli::run({"pack", file, "-o", "-", "-q", "--user", "pilot1", "--schema-namespace", "urn:n"});
    page = streams.output();
  }
  const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
      htmlReadMemory(
          page.data(), static_cast<int>(page.size()), nullptr, "UTF-8",
          HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET),
      xmlFreeDoc);
  fuzz::require(document != nullptr && page.find("Content-Security-Policy") != page.npos,
                "there is a page");
  check(xmlDocGetRootElement(document.get()));
  return 0;
}
