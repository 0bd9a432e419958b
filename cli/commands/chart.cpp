#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/property_output.h"
#include "cli/text_output.h"
#include "cli/usage_error.h"

#include <ktpnaips/briefing/charts.h>

#include <memory>
#include <string>
#include <vector>

namespace cli {
namespace {

using ktpnaips::ChartDescriptor;
using ktpnaips::ChartDirectoryRqs;
using ktpnaips::GetChartRqs;
using ktpnaips::GetChartRsp;
using ktpnaips::Product;

constexpr Shown<ChartDescriptor> description[] = {
    {"StoreTime", "STORED", valueOf<&ChartDescriptor::StoreTime>},
    {"Name", "NAME", valueOf<&ChartDescriptor::Name>, true},
    {"Key", "KEY", valueOf<&ChartDescriptor::Key>},
    {"LowRes", "LO", valueOf<&ChartDescriptor::LowRes>},
    {"HighRes", "HI", valueOf<&ChartDescriptor::HighRes>},
    {"PDF", "", valueOf<&ChartDescriptor::PDF>},
    {"ProductType", "TYPE", valueOf<&ChartDescriptor::ProductType>}};

constexpr Shown<Product> product[] = {{"ProductType", "", valueOf<&Product::ProductType>},
                                      {"Resolution", "", valueOf<&Product::Resolution>},
                                      {"FilePath", "", valueOf<&Product::FilePath>}};

struct Call {
  GetChartRqs request;
  std::vector<std::wstring> keys;
  bool isForAll = false;
};

void chartFields(const GetChartRsp& chart, JsonObject& json) {
  const auto& descriptor = chart.ChartDescriptor();
  json.set("ChartDescriptor", descriptor ? jsonObject(*descriptor, description) : Json());
  setObjects(json, chart, product);
}

void printChart(const GetChartRsp& chart) {
  const auto& descriptor = chart.ChartDescriptor();
  if (descriptor) printLine(oneLine(descriptor->Key() + L"  " + descriptor->Name()));
  for (const auto& each : chart) printFile(each->FilePath());
}

void getEach(Session& session, Call& call) {
  session.submitEach(
      call.request, call.keys, [](GetChartRqs& request, const auto& key) { request.Key(key); },
      chartFields, printChart);
}

void getAll(Session& session, Call& call) {
  ChartDirectoryRqs request;
  if (session.isDryRun()) {
    session.showDocument(request);
    return;
  }
  const auto directory = session.fetch(request);
  if (directory == nullptr || directory->Error()) {
    session.show(
        directory.get(),
        [](JsonObject& json) {
          json.setAll({{"Count", 0}, {"Items", Json::array()}});
        },
        [] {});
    return;
  }
  for (const auto& chart : *directory) call.keys.push_back(chart->Key());
  getEach(session, call);
}

void get(Session& session, Call& call) {
  if (!session.keepsFiles() && !session.isDryRun()) {
    session.remark("The files of charts are gone when this command ends; keep them with --out.");
  }
  if (call.isForAll) {
    getAll(session, call);
  } else if (call.keys.size() > 1) {
    getEach(session, call);
  } else {
    call.request.Key(call.keys.front());
    session.submit(call.request, chartFields, printChart);
  }
}

const Registered listCharts({"chart", "list", "List the charts that there are", "naips chart list",
                             [](CLI::App&) -> Run {
                               return listing(std::make_shared<ChartDirectoryRqs>(), description);
                             }});

const Registered getCharts(
    {"chart", "get", "Fetch charts", "naips chart get 80001 80011 --resolution HI --out charts",
     [](CLI::App& app) -> Run {
       const auto call = std::make_shared<Call>();
       auto* keys = addTexts(app, "KEY", "Keys of the charts",
                             [=](auto key) { call->keys.emplace_back(key); });
       app.add_flag("--all", call->isForAll, "Every chart of the directory")->excludes(keys);
       addText(app, "--resolution", "LO or HI; the service's choice without it",
               [=](auto text) { call->request.Resolution(text); });
       app.parse_complete_callback([=] {
         if (call->keys.empty() && !call->isForAll) {
           throw UsageError("name the charts by their keys, or give --all for every chart");
         }
       });
       return [=](Session& session) { get(session, *call); };
     }});

}  // namespace
}  // namespace cli
