#include "answers.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace bench {
namespace {

constexpr std::size_t textSize = 60'000;
constexpr std::size_t imageSize = 200'000;
constexpr int images = 6;

std::string envelope(std::string_view element, std::string_view content) {
  std::string xml =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\"><soap:Body><n:";
  xml.append(element).append(" xmlns:n=\"").append(schemaNamespace);
  xml.append("\" status=\"SUCCESS\">").append(content).append("</n:").append(element);
  return xml += "></soap:Body></soap:Envelope>\n";
}

std::string element(std::string_view name, std::string_view text) {
  std::string xml = "<n:";
  xml.append(name).append(">").append(text).append("</n:").append(name).append(">");
  return xml;
}

std::string login() {
  return envelope("authenticate-rsp",
                  element("name", "A. Citizen") + element("motd", "Charts are late today") +
                      element("email", "a.citizen@bench.example") + element("scheduling", "true") +
                      element("avfax-id", "12345"));
}

std::string briefingText(std::size_t size) {
  constexpr std::string_view line =
      "TAF YSSY 210500Z 2106/2212 18012KT 9999 LIGHT SHOWERS OF RAIN SCT030 BKN045 FM211200 "
      "20008KT\n";
  std::string text;
  text.reserve(size + line.size());
  while (text.size() < size) text += line;
  text.resize(size);
  return text;
}

std::string product(std::string_view bytes) {
  return "<n:product type=\"PNG\">" + element("content", base64(bytes)) + "</n:product>";
}

std::string briefing() {
  std::string content = element("content", briefingText(textSize));
  for (int i = 0; i < images; ++i) content += product(someBytes(imageSize));
  return envelope("loc-brief-rsp", content);
}

std::string directory(std::size_t entries) {
  std::string content;
  for (std::size_t i = 0; i < entries; ++i) {
    content += "<n:route>" + element("adep", "YSSY") + element("ades", "YMML") +
               element("code", "R" + std::to_string(i)) +
               element("description", "WOL H65 RAZZI Q29 LIZZI V279 ML") + "</n:route>";
  }
  return envelope("route-dir-rsp", content);
}

/// The number at the end of a name that starts with `kind`.
bool isOf(std::string_view name, std::string_view kind, std::size_t& number) {
  if (!name.starts_with(kind)) return false;
  return std::from_chars(name.data() + kind.size(), name.data() + name.size(), number).ec ==
         std::errc();
}

}  // namespace

std::string answer(std::string_view name) {
  std::size_t number = 0;
  if (name == "login") return login();
  if (name == "briefing") return briefing();
  if (isOf(name, "directory-", number)) return directory(number);
  if (isOf(name, "product-", number)) return envelope("loc-brief-rsp", product(someBytes(number)));
  if (isOf(name, "text-", number)) {
    return envelope("loc-brief-rsp", element("content", briefingText(number)));
  }
  return {};
}

std::string someBytes(std::size_t size) {
  std::string bytes(size, '\0');
  std::uint32_t state = 1;
  std::ranges::generate(bytes, [&] {
    state = state * 1664525U + 1013904223U;
    return static_cast<char>(state >> 24U);
  });
  return bytes;
}

std::string base64(std::string_view bytes) {
  constexpr std::string_view alphabet =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  constexpr std::size_t groupsALine = 19;
  std::string text;
  text.reserve(bytes.size() / 3 * 4 + bytes.size() / 3 / groupsALine * 2 + 8);
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    const std::size_t left = std::min<std::size_t>(bytes.size() - at, 3);
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      group = group << 8U | (i < left ? static_cast<unsigned char>(bytes[at + i]) : 0U);
    }
    for (std::size_t i = 0; i < 4; ++i) {
      text += i <= left ? alphabet[group >> (18U - 6U * i) & 0x3FU] : '=';
    }
    if (at / 3 % groupsALine == groupsALine - 1) text += "\r\n";
  }
  return text;
}

}  // namespace bench
