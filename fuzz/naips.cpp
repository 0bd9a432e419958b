#include <nlohmann/json.hpp>

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "canned_exchange.h"
#include "cli/application.h"
#include "fuzzing.h"
#include "scratch.h"
#include "standard_streams.h"

/// Hostile answers, as naips shows them: nothing that a terminal acts on, no password, and one
/// object of JSON. The first byte chooses the command, the second what is asked of it, the third
/// how much of an answer the rest is.
namespace {

constexpr std::string_view password = "Zq7&<x9\"Vw";

const std::vector<std::vector<std::string>> commands{
    {"account", "login"},
    {"account", "groups"},
    {"brief", "area", "20", "--met"},
    {"chart", "list"},
    {"chart", "get", "K"},
    {"chart", "get", "K", "L"},
    {"flight", "list"},
    {"light", "--name", "YSSY"},
    {"location", "S"},
    {"met", "list"},
    {"notam", "list", "1"},
    {"route", "list", "YSSY", "YMML"},
    {"route", "get", "YSSY", "YMML", "H1"},
    {"spfib", "list"},
    {"spfib", "get", "1"},
};
const std::array<std::vector<std::string>, 5> ways{
    {{}, {"--json"}, {"--trace"}, {"--json", "--trace"}, {"-vv"}}};

/// What the text has that stands here: how many bytes of something that must not be shown; 0 when
/// it may be.
std::size_t controlAt(std::string_view text) {
  constexpr std::array<std::string_view, 12> directions{
      "\xD8\x9C",     "\xE2\x80\x8E", "\xE2\x80\x8F", "\xE2\x80\xA8",
      "\xE2\x80\xA9", "\xE2\x80\xAA", "\xE2\x80\xAB", "\xE2\x80\xAC",
      "\xE2\x80\xAD", "\xE2\x80\xAE", "\xE2\x81\xA6", "\xE2\x81\xA9"};
  const auto byte = static_cast<unsigned char>(text.front());
  if ((byte < 0x20 && byte != '\n' && byte != '\t') || byte == 0x7F) return 1;
  const auto next = text.size() > 1 ? static_cast<unsigned char>(text[1]) : 0U;
  if (byte == 0xC2 && next >= 0x80 && next < 0xA0) return 2;
  for (const auto each : directions) {
    if (text.starts_with(each)) return each.size();
  }
  return 0;
}

void checkShown(std::string_view text) {
  fuzz::require(text.find(password) == text.npos, "the password is not shown");
  for (; !text.empty(); text.remove_prefix(1)) {
    fuzz::require(controlAt(text) == 0, "nothing is shown that a terminal acts on");
  }
}

std::string answerOf(std::uint8_t form, const std::string& text) {
  constexpr std::string_view begin =
      "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/' "
      "xmlns:n='urn:n'><s:Body>";
  constexpr std::string_view end = "</s:Body></s:Envelope>";
  const std::string whole(begin);
  switch (form % 4) {
    case 0:
      return text;
    case 1:
      return whole + text + std::string(end);
    default:
      return whole + "<n:rsp status='" + (form % 4 == 2 ? "FAILURE" : "SUCCESS") + "'>" + text +
             "</n:rsp>" + std::string(end);
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Scratch scratch;
  ::setenv("NAIPS_PASSWORD", std::string(password).c_str(), 1);
  fuzz::Input input(data, size);
  std::vector<std::string> arguments = commands[input.byte() % commands.size()];
  const auto& way = ways[input.byte() % ways.size()];
  arguments.insert(arguments.end(), way.begin(), way.end());
  arguments.insert(arguments.end(), {"--user", "pilot1", "--schema-namespace", "urn:n"});
  const std::uint8_t form = input.byte();
  fuzz::cannedAnswer().status = form < 0xF0 ? "200" : "500";
  fuzz::cannedAnswer().body = answerOf(form, input.rest());

  std::string output;
  std::string error;
  int status = 0;
  {
    const fuzz::StandardStreams streams;
    status = cli::run(arguments);
    output = streams.output();
    error = streams.error();
  }
  fuzz::require(status == 0 || status == 1 || status == 3, "a request was made");
  checkShown(output);
  checkShown(error);
  const bool isJson = !way.empty() && way.front() == "--json";
  if (isJson) {
    const auto json = nlohmann::json::parse(output, nullptr, false);
    fuzz::require(
        json.is_object() && json.at("Error").get<bool>() ==
                                (status == 1 || (status == 3 && json.at("Error").get<bool>())),
        "the result is one object, as the status has it");
  }
  return 0;
}
