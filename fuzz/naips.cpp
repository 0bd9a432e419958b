#include <ktpnaips/platform/text.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "cli/application.h"
#include "fuzzing.h"
#include "scratch.h"
#include "standard_streams.h"
#include "support/canned_exchange.h"

/// Hostile answers, as naips shows them to a person and to a program: nothing that a terminal acts
/// on, no password, one object of JSON. The first byte chooses the command, in the order of the
/// response classes of fuzz-answer, the second how much of an answer the rest is and what is asked
/// for besides.
namespace {

using Arguments = std::vector<std::string>;

constexpr std::string_view password = "Zq7&<x9\"Vw";

std::string noNotification(fuzz::Scratch& scratch) {
  return scratch.readable("none.json", "null");
}

const std::vector<Arguments>& commands(fuzz::Scratch& scratch) {
  static const std::vector<Arguments> all{
      {"route", "get", "YSSY", "YMML", "H1"},
      {"account", "login"},
      {"chart", "get", "K", "L"},
      {"account", "groups"},
      {"brief", "area", "20", "--met"},
      {"light", "--name", "YSSY"},
      {"chart", "list"},
      {"chart", "get", "K"},
      {"notam", "list", "1"},
      {"met", "list"},
      {"spfib", "list"},
      {"location", "S"},
      {"spfib", "get", "1"},
      {"route", "list", "YSSY", "YMML"},
      {"flight", "list"},
      {"flight", "file", noNotification(scratch)},
      {"flight", "sartime", noNotification(scratch)},
  };
  return all;
}

const std::array<Arguments, 3> besides{{{}, {"--trace"}, {"-vv"}}};

bool isActedOn(wchar_t code) {
  const bool isControl =
      (code < 0x20 && code != '\n' && code != '\t') || (code >= 0x7F && code < 0xA0);
  const bool isSeparator = code == 0x2028 || code == 0x2029;
  const bool isDirection = code == 0x61C || code == 0x200E || code == 0x200F ||
                           (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
  return isControl || isSeparator || isDirection;
}

void checkShown(const std::string& text) {
  fuzz::require(text.find(password) == text.npos, "the password is not shown");
  const std::wstring characters = ktpnaips::text::fromUtf8(text);
  fuzz::require(ktpnaips::text::toUtf8(characters) == text, "what is shown is UTF-8");
  fuzz::require(std::ranges::none_of(characters, isActedOn),
                "nothing is shown that a terminal acts on");
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

struct Shown {
  int status = 0;
  std::string output;
};

/// Runs naips and checks what is true of all that it shows.
Shown shownBy(const Arguments& arguments) {
  Shown shown;
  std::string error;
  fuzz::cannedAnswer().isRead = false;
  {
    const fuzz::StandardStreams streams;
    // Temporary files of charts live as long as their thread.
    std::thread([&] { shown.status = cli::run(arguments); }).join();
    shown.output = streams.output();
    error = streams.error();
  }
  fuzz::require(fuzz::cannedAnswer().isRead, "a request was made");
  fuzz::require(shown.status == 0 || shown.status == 1 || shown.status == 3,
                "the status is that of an answer");
  checkShown(shown.output);
  checkShown(error);
  return shown;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Scratch scratch;
  ::setenv("NAIPS_PASSWORD", std::string(password).c_str(), 1);
  fuzz::Input input(data, size);
  const auto& all = commands(scratch);
  Arguments arguments = all[input.byte() % all.size()];
  const std::uint8_t form = input.byte();
  const auto& more = besides[form / 4 % besides.size()];
  arguments.insert(arguments.end(), more.begin(), more.end());
  arguments.insert(arguments.end(), {"--user", "pilot1", "--schema-namespace", "urn:n"});
  fuzz::cannedAnswer().status = form < 0xF0 ? "200" : "500";
  fuzz::cannedAnswer().body = answerOf(form, input.rest());

  const int status = shownBy(arguments).status;
  arguments.emplace_back("--json");
  const Shown shown = shownBy(arguments);
  const auto json = nlohmann::json::parse(shown.output, nullptr, false);
  fuzz::require(json.is_object(), "a program is shown one object");
  const bool hasFailures = !json.at("Failures").empty();
  const int asJsonHasIt = json.at("Error").get<bool>() ? 1 : 0;
  fuzz::require(shown.status == (hasFailures ? 3 : asJsonHasIt), "the status is what JSON says");
  fuzz::require(shown.status == status, "a person and a program are told the same");
  fuzz::require(scratch.holdsProductsOnly(), "products stay in their folder");
  return 0;
}
