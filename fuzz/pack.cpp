#include <libxml/HTMLparser.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "cli/application.h"
#include "fuzzing.h"
#include "scratch.h"
#include "standard_streams.h"
#include "support/canned_exchange.h"

/// Hostile answers in a pack: the page has no script, no handler and no address but its own.
namespace {

constexpr std::string_view flight =
    R"({"Aircraft": "VHABC", "TAS": "N0100", "Stages": [{"Departing": "YSSY", "Destination": "YSCB",
        "ETD": "2026-12-01T22:00:00Z", "Route": {"RouteCode": "H1"}}]})";

std::string_view view(const xmlChar* text) {
  return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

std::string contentOf(const xmlNode* node) {
  xmlChar* const content = xmlNodeGetContent(node);
  std::string text(view(content));
  xmlFree(content);
  return text;
}

bool fetches(std::string_view style) {
  return style.find("url(") != style.npos || style.find("@import") != style.npos;
}

void checkAttribute(const xmlAttr& attribute, std::string_view element) {
  constexpr std::array addresses{"href", "xlink:href", "src",        "srcset", "action",
                                 "data", "poster",     "formaction", "cite",   "background"};
  const std::string_view name = view(attribute.name);
  const std::string value = contentOf(attribute.children);
  fuzz::require(!name.starts_with("on"), "there is no handler");
  fuzz::require(name != "style" || !fetches(value), "no style fetches anything");
  fuzz::require(name != "http-equiv" || value == "Content-Security-Policy",
                "the page goes nowhere by itself");
  if (std::ranges::find(addresses, name) == addresses.end()) return;
  const bool isPicture = element == "img" && value.starts_with("data:image/");
  const bool isFile = element == "a" && value.starts_with("data:application/");
  fuzz::require(value.starts_with('#') || isPicture || isFile, "addresses are the page's own");
}

void check(const xmlNode* first) {
  constexpr std::array unwanted{"script", "iframe", "frame",         "object", "embed",  "base",
                                "link",   "form",   "foreignobject", "set",    "animate"};
  for (const xmlNode* node = first; node != nullptr; node = node->next) {
    if (node->type != XML_ELEMENT_NODE) continue;
    const std::string_view name = view(node->name);
    fuzz::require(std::ranges::find(unwanted, name) == unwanted.end(),
                  "nothing runs and nothing is fetched");
    fuzz::require(name != "style" || !fetches(contentOf(node)), "no style fetches anything");
    for (const xmlAttr* each = node->properties; each != nullptr; each = each->next) {
      checkAttribute(*each, name);
    }
    check(node->children);
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Scratch scratch;
  static const std::string file = scratch.readable("flight.json", flight);
  ::setenv("NAIPS_PASSWORD", "Zq7&<x9\"Vw", 1);
  fuzz::Input input(data, size);
  fuzz::cannedAnswer().body =
      "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/' xmlns:n='urn:n' "
      "xmlns='urn:n'><s:Body><n:rsp status='SUCCESS'>" +
      input.rest() + "</n:rsp></s:Body></s:Envelope>";
  fuzz::cannedAnswer().isRead = false;
  std::string page;
  {
    const fuzz::StandardStreams streams;
    // Temporary files of charts live as long as their thread.
    std::thread([] {
      cli::run({"pack", file, "-o", "-", "-q", "--user", "pilot1", "--schema-namespace", "urn:n"});
    }).join();
    page = streams.output();
  }
  fuzz::require(fuzz::cannedAnswer().isRead, "requests were made");
  const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
      htmlReadMemory(
          page.data(), static_cast<int>(page.size()), nullptr, "UTF-8",
          HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET),
      xmlFreeDoc);
  fuzz::require(document != nullptr && page.find("Content-Security-Policy") != page.npos,
                "there is a page");
  check(xmlDocGetRootElement(document.get()));
  fuzz::require(scratch.holdsProductsOnly(), "products stay in their folder");
  return 0;
}
