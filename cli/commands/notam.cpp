#include "cli/arguments.h"
#include "cli/briefing_output.h"
#include "cli/command.h"
#include "cli/property_output.h"

#include <ktpnaips/briefing/notams.h>

#include <memory>

namespace cli {
namespace {

using ktpnaips::NotamBaseDescriptor;
using ktpnaips::RetrieveFullTextNotamRqs;
using ktpnaips::ViewNOTAMListForSPFIBRqs;
using ktpnaips::ViewNOTAMListForSPFIBRsp;

constexpr Shown<NotamBaseDescriptor> notam[] = {
    {"NotamKey", "KEY", valueOf<&NotamBaseDescriptor::NotamKey>},
    {"NotamId", "NOTAM", valueOf<&NotamBaseDescriptor::NotamId>},
    {"Location", "LOCATION", valueOf<&NotamBaseDescriptor::Location>},
    {"Summary", "SUMMARY", valueOf<&NotamBaseDescriptor::Summary>}};

void listFields(const ViewNOTAMListForSPFIBRsp& response, JsonObject& json) {
  json.set("SPFIBNumber", jsonText(response.SPFIBNumber()));
  setObjects(json, response, notam);
}

const Registered listNotams({"notam", "list", "List the NOTAMs of a bulletin",
                             "naips notam list 1001", [](CLI::App& app) -> Run {
                               const auto request = std::make_shared<ViewNOTAMListForSPFIBRqs>();
                               addText(app, "NUMBER", "Number of the bulletin", [=](auto text) {
                                 request->SPFIBNo(text);
                               })->required();
                               return [=](Session& session) {
                                 session.submit(*request, listFields, [](const auto& response) {
                                   printTable(response, notam);
                                 });
                               };
                             }});

const Registered showNotams({"notam", "text", "Full text of NOTAMs",
                             "naips notam text C1042/24-YSSY", [](CLI::App& app) -> Run {
                               const auto request = std::make_shared<RetrieveFullTextNotamRqs>();
                               addTexts(app, "KEY", "Keys of the NOTAMs", [=](auto key) {
                                 request->addKey(key);
                               })->required();
                               return briefing(request);
                             }});

}  // namespace
}  // namespace cli
