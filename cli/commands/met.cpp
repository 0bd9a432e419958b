#include "cli/arguments.h"
#include "cli/briefing_output.h"
#include "cli/command.h"
#include "cli/property_output.h"

#include <ktpnaips/spfib/general_met.h>

#include <memory>

namespace cli {
namespace {

using ktpnaips::GeneralMETMessage;
using ktpnaips::GeneralMETMessageDirRqs;
using ktpnaips::GetGeneralMETMessageRqs;

constexpr Shown<GeneralMETMessage> message[] = {
    {"Name", "NAME", valueOf<&GeneralMETMessage::Name>},
    {"EntryType", "TYPE", valueOf<&GeneralMETMessage::EntryType>}};

const Registered listMet({"met", "list", "List the general MET messages", "naips met list",
                          [](CLI::App&) -> Run {
                            return listing(std::make_shared<GeneralMETMessageDirRqs>(), message);
                          }});

const Registered getMet({"met", "get", "Fetch a general MET message",
                         "naips met get \"FOG OUTLOOK SOUTH EAST\" OUTLOOK",
                         [](CLI::App& app) -> Run {
                           const auto request = std::make_shared<GetGeneralMETMessageRqs>();
                           addText(app, "NAME", "Name of the message", [=](auto text) {
                             request->Name(text);
                           })->required();
                           addText(app, "TYPE", "Type of the message", [=](auto text) {
                             request->MessageType(text);
                           })->required();
                           return briefing(request);
                         }});

}  // namespace
}  // namespace cli
