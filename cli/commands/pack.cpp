#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/pack/document.h"
#include "cli/pack/flight.h"
#include "cli/pack/output_file.h"
#include "cli/pack/requests.h"
#include "cli/text_output.h"
#include "cli/usage_error.h"

#include <ktpnaips/spfib/spfib_requests.h>

#include <fmt/format.h>

#include <memory>
#include <optional>
#include <string>

namespace cli {
namespace {

struct PackCall {
  pack::Flight flight;
  pack::Wanted wanted{std::make_shared<ktpnaips::SPFIBRqs>(), {}};
  std::string output = "pack.html";
  bool mayReplace = false;
};

void makePack(Session& session, PackCall& call) {
  if (session.isDryRun()) {
    pack::showDocuments(session, call.flight, call.wanted);
    session.remark("What depends on answers is not shown: light, NOTAMs, charts.");
    return;
  }
  pack::OutputFile file(call.output, call.mayReplace);
  const auto [gathered, outcomes] = pack::gather(session, std::move(call.flight), call.wanted);
  file.write(pack::htmlDocument(gathered));
  file.finish();
  if (!session.options().json) printLine(call.output);
  session.finishEach(outcomes, {{"File", call.output}});
}

const Registered packFlight(
    {"", "pack", "Everything for a flight in one file to read and print", [](CLI::App& app) -> Run {
       const auto call = std::make_shared<PackCall>();
       addRequestFile(app, [=](const std::string& file) {
         call->flight = pack::readFlight(file);
         call->wanted.bulletin->SPFIBSpec(call->flight.spec);
       });
       app.add_option("-o,--output", call->output, "The file to write")->type_name("FILE");
       app.add_flag("--force", call->mayReplace, "Replace the file");
       return [=](Session& session) { makePack(session, *call); };
     }});

}  // namespace
}  // namespace cli
