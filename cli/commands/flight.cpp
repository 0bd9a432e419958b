#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/notification_files.h"
#include "cli/property_output.h"
#include "cli/text_output.h"

#include <ktpnaips/notification/filing.h>
#include <ktpnaips/notification/notification_directory.h>

#include <memory>
#include <string>

namespace cli {
namespace {

using ktpnaips::ActiveFlightNotifDetails;
using ktpnaips::ActiveFlightNotifDirRqs;
using ktpnaips::SubmitICAOFlightNotifRqs;
using ktpnaips::SubmitICAOFlightNotifRsp;
using ktpnaips::SubmitSARTimeNotifRqs;
using ktpnaips::SubmitSARTimeNotifRsp;

constexpr Shown<ActiveFlightNotifDetails> notification[] = {
    {"OwnerId", "OWNER", valueOf<&ActiveFlightNotifDetails::OwnerId>},
    {"Route", "ROUTE", valueOf<&ActiveFlightNotifDetails::Route>, true},
    {"Aircraft", "AIRCRAFT", valueOf<&ActiveFlightNotifDetails::Aircraft>},
    {"DTG", "FILED", valueOf<&ActiveFlightNotifDetails::DTG>},
    {"GroupId", "GROUP", valueOf<&ActiveFlightNotifDetails::GroupId>},
    {"Id", "ID", valueOf<&ActiveFlightNotifDetails::Id>}};

void planFields(const SubmitICAOFlightNotifRsp& response, JsonObject& json) {
  json.setItems(response, jsonText);
}

void printPlans(const SubmitICAOFlightNotifRsp& response) {
  printLine("The flight notification has been filed.");
  for (const auto& text : response) {
    printLine();
    printText(text);
  }
}

void sarTimeFields(const SubmitSARTimeNotifRsp& response, JsonObject& json) {
  json.set("NotifText", jsonText(response.NotifText()));
}

void printSarTime(const SubmitSARTimeNotifRsp& response) {
  printLine("The SARTime notification has been filed.");
  printLine();
  printText(response.NotifText());
}

const Registered fileIcao({"flight", "file", "File an ICAO flight notification",
                           "naips flight file icao-plan.json", [](CLI::App& app) -> Run {
                             const auto request = std::make_shared<SubmitICAOFlightNotifRqs>();
                             addRequestFile(app, [=](const std::string& name) {
                               request->Notification(readIcaoFile(name));
                             });
                             addGroup(app, request);
                             addFlag(app, "--ignore-type-mismatch",
                                     "Accept an aircraft type that is not the registration's",
                                     [=] { request->IgnoreTypeMismatch(true); });
                             return [=](Session& session) {
                               session.submit(*request, planFields, printPlans);
                             };
                           }});

const Registered fileSarTime({"flight", "sartime", "File a SARTime notification",
                              "naips flight sartime sartime.json", [](CLI::App& app) -> Run {
                                const auto request = std::make_shared<SubmitSARTimeNotifRqs>();
                                addRequestFile(app, [=](const std::string& name) {
                                  request->Notification(readSarTimeFile(name));
                                });
                                addGroup(app, request);
                                return [=](Session& session) {
                                  session.submit(*request, sarTimeFields, printSarTime);
                                };
                              }});

const Registered listFlights({"flight", "list", "List the active flight notifications",
                              "naips flight list --aircraft VHABC", [](CLI::App& app) -> Run {
                                const auto request = std::make_shared<ActiveFlightNotifDirRqs>();
                                addText(app, "--aircraft", "Of this aircraft only",
                                        [=](auto text) { request->Aircraft(text); });
                                addGroup(app, request);
                                return listing(request, notification);
                              }});

}  // namespace
}  // namespace cli
