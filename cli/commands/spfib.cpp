#include "cli/arguments.h"
#include "cli/briefing_output.h"
#include "cli/bulletin_file.h"
#include "cli/command.h"
#include "cli/property_output.h"
#include "cli/text_output.h"

#include <ktpnaips/spfib/spfib_directory.h>
#include <ktpnaips/spfib/spfib_requests.h>

#include <memory>
#include <string>

namespace cli {
namespace {

using ktpnaips::ActiveSPFIBDirectoryRqs;
using ktpnaips::GetSPFIBRqs;
using ktpnaips::GetSPFIBRsp;
using ktpnaips::SPFIBDescriptor;
using ktpnaips::SPFIBRqs;
using ktpnaips::SPFIBSpec;
using ktpnaips::SPFIBStageSpec;
using ktpnaips::UpdateSPFIBRqs;

constexpr Shown<SPFIBDescriptor> bulletin[] = {
    {"Number", "NUMBER", valueOf<&SPFIBDescriptor::Number>},
    {"Aircraft", "AIRCRAFT", valueOf<&SPFIBDescriptor::Aircraft>},
    {"DTG", "STORED", valueOf<&SPFIBDescriptor::DTG>}};

constexpr Shown<SPFIBSpec> flight[] = {{"TAS", "TAS", valueOf<&SPFIBSpec::TAS>},
                                       {"Aircraft", "Aircraft", valueOf<&SPFIBSpec::Aircraft>}};

constexpr Shown<SPFIBStageSpec> stage[] = {
    {"Departing", "FROM", valueOf<&SPFIBStageSpec::Departing>},
    {"Destination", "TO", valueOf<&SPFIBStageSpec::Destination>},
    {"ETD", "ETD", valueOf<&SPFIBStageSpec::ETD>}};

Json specification(const SPFIBSpec& spec) {
  Json json = jsonObject(spec, flight);
  json["Count"] = spec.Count();
  json["Stages"] = Json::array();
  for (const auto& each : spec) json["Stages"].push_back(jsonObject(*each, stage));
  return json;
}

void bulletinFields(const GetSPFIBRsp& response, JsonObject& json) {
  json.set("Duration", jsonText(response.Duration()));
  const auto& spec = response.SPFIBSpec();
  json.set("SPFIBSpec", spec ? specification(*spec) : Json());
}

void printBulletin(const GetSPFIBRsp& response) {
  printField("Duration", response.Duration());
  const auto& spec = response.SPFIBSpec();
  if (!spec) return;
  printFields(*spec, flight);
  printLine();
  printTable(*spec, stage);
}

template <class Request>
void addDuration(CLI::App& app, const std::shared_ptr<Request>& request) {
  addNumber(app, "--duration", "Hours of validity, up to 30",
            [=](auto hours) { request->Duration(hours); });
}

CLI::Option* addBulletinNumber(CLI::App& app, TextSetter set) {
  return addText(app, "NUMBER", "Number of the bulletin", std::move(set))->required();
}

const Registered requestBulletin({"spfib", "request", "Ask for a bulletin for a flight",
                                  "naips spfib request bulletin.json --duration 6",
                                  [](CLI::App& app) -> Run {
                                    const auto request = std::make_shared<SPFIBRqs>();
                                    addRequestFile(app, [=](const std::string& file) {
                                      request->SPFIBSpec(readBulletinFile(file));
                                    });
                                    addDuration(app, request);
                                    addGroup(app, request);
                                    addPeriod(app, request->briefingReq());
                                    return briefing(request);
                                  }});

const Registered getBulletin({"spfib", "get", "Show the flight of a bulletin",
                              "naips spfib get 1001", [](CLI::App& app) -> Run {
                                const auto request = std::make_shared<GetSPFIBRqs>();
                                addBulletinNumber(app, [=](auto text) { request->Number(text); });
                                return [=](Session& session) {
                                  session.submit(*request, bulletinFields, printBulletin);
                                };
                              }});

const Registered updateBulletin({"spfib", "update", "Ask for an update of a bulletin",
                                 "naips spfib update 1001 --stages 1", [](CLI::App& app) -> Run {
                                   const auto request = std::make_shared<UpdateSPFIBRqs>();
                                   addBulletinNumber(
                                       app, [=](auto text) { request->SPFIBNumber(text); });
                                   addDuration(app, request);
                                   addNumber(app, "--stages",
                                             "How many stages it includes, 1 to 10",
                                             [=](auto count) { request->StageCount(count); });
                                   addPeriod(app, request->briefingReq());
                                   return briefing(request);
                                 }});

const Registered listBulletins({"spfib", "list", "List the bulletins that the service holds",
                                "naips spfib list", [](CLI::App& app) -> Run {
                                  const auto request = std::make_shared<ActiveSPFIBDirectoryRqs>();
                                  addGroup(app, request);
                                  return listing(request, bulletin);
                                }});

}  // namespace
}  // namespace cli
