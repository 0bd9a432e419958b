#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/pack/document.h"
#include "cli/pack/flight.h"
#include "cli/pack/output_file.h"
#include "cli/pack/pdf.h"
#include "cli/pack/requests.h"
#include "cli/text_output.h"
#include "cli/usage_error.h"

#include <ktpnaips/spfib/spfib_requests.h>

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace cli {
namespace {

struct PackCall {
  pack::Flight flight;
  pack::Wanted wanted{std::make_shared<ktpnaips::SPFIBRqs>(), true, {}};
  std::string output;
  bool isPdf = false;
  bool mayReplace = false;
  std::string browser;
};

constexpr const char* standardOutput = "-";

void addBulletinOptions(CLI::App& app, const std::shared_ptr<ktpnaips::SPFIBRqs>& bulletin) {
  addNumber(app, "--duration", "Hours of validity of the bulletin, up to 30",
            [=](auto hours) { bulletin->Duration(hours); });
  addGroup(app, bulletin);
  addPeriod(app, bulletin->briefingReq());
}

void addOutputOptions(CLI::App& app, PackCall& call) {
  app.add_option("-o,--output", call.output,
                 "File to write, - for standard output; default pack.html or pack.pdf")
      ->type_name("FILE");
  app.add_option_function<std::string>(
         "--format", [&](const std::string& format) { call.isPdf = format == "pdf"; },
         "html (default) or pdf")
      ->check(CLI::IsMember({"html", "pdf"}).description(""))
      ->type_name("FORMAT");
  app.add_flag("--force", call.mayReplace, "Replace the file when it is there already");
  app.add_option("--browser", call.browser,
                 "Chromium, for --format pdf; default the one that is installed")
      ->type_name("PROGRAM");
}

void addChartOptions(CLI::App& app, pack::Wanted& wanted) {
  auto* charts =
      addTexts(app, "--charts", "Charts by key or type, repeatable; default all of the directory",
               [&](auto text) { wanted.charts.push_back(oneLine(text)); });
  app.add_flag_callback(
         "--no-charts", [&] { wanted.hasCharts = false; }, "No charts")
      ->excludes(charts);
}

void requireCombinable(const Session& session, const PackCall& call) {
  if (call.output != standardOutput) return;
  if (call.isPdf) throw UsageError("a PDF file is not written to standard output: give -o FILE");
  if (session.options().json) {
    throw UsageError("--json writes to standard output: give the pack a file with -o");
  }
}

/// Writes the pack to its file, unless nothing was answered and the file holds an older one.
/// Returns what is to be said about it.
std::string writePack(const pack::Pack& gathered, const PackCall& call,
                      const std::filesystem::path& browser, pack::OutputFile& file,
                      bool isAnswered) {
  if (!isAnswered && file.replaces()) {
    return fmt::format("{} is left as it was: no request was answered.", call.output);
  }
  const std::string document = pack::htmlDocument(gathered);
  if (call.isPdf) {
    pack::printToPdf(browser, document, file.partial());
  } else {
    file.write(document);
  }
  file.finish();
  return call.output;
}

void makePack(Session& session, PackCall& call) {
  if (session.isDryRun()) {
    pack::showDocuments(session, call.flight, call.wanted);
    session.remark("Requests that depend on answers are not shown: light, NOTAMs, charts.");
    return;
  }
  requireCombinable(session, call);
  std::filesystem::path browser;
  if (call.isPdf) browser = pack::findBrowser(call.browser);
  const bool isFile = call.output != standardOutput;
  if (call.output.empty()) call.output = call.isPdf ? "pack.pdf" : "pack.html";
  std::optional<pack::OutputFile> file;
  if (isFile) file.emplace(call.output, call.mayReplace);

  const auto [gathered, outcomes] = pack::gather(session, std::move(call.flight), call.wanted);
  if (!isFile) {
    printLine(pack::htmlDocument(gathered));
  } else {
    const bool isAnswered = outcomes.failed() < outcomes.written().size();
    const std::string told = writePack(gathered, call, browser, *file, isAnswered);
    if (!session.options().json) printLine(told);
  }
  session.finishEach(outcomes, {{"File", call.output}});
}

const Registered packFlight({"", "pack", "Everything for a flight in one file to read and print",
                             "naips pack bulletin.json -o flight.html", [](CLI::App& app) -> Run {
                               const auto call = std::make_shared<PackCall>();
                               addRequestFile(app, [=](const std::string& file) {
                                 call->flight = pack::readFlight(file);
                                 call->wanted.bulletin->SPFIBSpec(call->flight.spec);
                               });
                               addOutputOptions(app, *call);
                               addBulletinOptions(app, call->wanted.bulletin);
                               addChartOptions(app, call->wanted);
                               return [=](Session& session) { makePack(session, *call); };
                             }});

}  // namespace
}  // namespace cli
