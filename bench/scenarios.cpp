#include <ktpnaips/core/request_document.h>
#include <ktpnaips/ktpnaips.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "answers.h"

/// Runs a fixed scenario a number of times, for an instruction counter: the difference between two
/// numbers of times is the scenario's own count.
namespace {

template <class Response>
void load(const std::string& body) {
  Response response;
  response.ResponseDoc(ktpnaips::xml::Document::parse(body));
  if (response.Error()) std::exit(1);
  if constexpr (std::is_same_v<Response, ktpnaips::BriefingResponse>) {
    for (const auto& item : response) std::filesystem::remove(item->File());
  }
}

std::function<void()> scenario(const std::string& name) {
  if (name == "load-briefing") {
    return [body = bench::answer("briefing")] { load<ktpnaips::BriefingResponse>(body); };
  }
  if (name == "load-directory") {
    return [body = bench::answer("directory-5000")] { load<ktpnaips::RouteDirectoryRsp>(body); };
  }
  if (name != "build-requests") return {};
  return [] {
    ktpnaips::LocationBriefingRqs request;
    for (int i = 0; i < 12; ++i) request.addLocation(L"YSSY");
    for (int i = 0; i < 100; ++i) static_cast<void>(ktpnaips::requestDocument(request));
  };
}

}  // namespace

int main(int argc, char** argv) {
  ktpnaips::Deployment deployment;
  deployment.schemaNamespace.assign(bench::schemaNamespace.begin(), bench::schemaNamespace.end());
  ktpnaips::Deployment::use(deployment);
  const auto run = argc == 3 ? scenario(argv[1]) : nullptr;
  if (!run) {
    std::fputs("Usage: bench-scenarios load-briefing|load-directory|build-requests TIMES\n",
               stderr);
    return 2;
  }
  for (int i = std::atoi(argv[2]); i > 0; --i) run();
}
