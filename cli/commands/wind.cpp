#include "cli/arguments.h"
#include "cli/briefing_output.h"
#include "cli/command.h"
#include "cli/wind_file.h"

#include <memory>
#include <string>

namespace cli {
namespace {

const Registered showWind({"", "wind", "Winds and temperatures along a flight",
                           "naips wind wind.json", [](CLI::App& app) -> Run {
                             const auto request = std::make_shared<ktpnaips::WindTempProfileRqs>();
                             addRequestFile(app, [=](const std::string& file) {
                               readWindFile(file, *request);
                             });
                             return briefing(request);
                           }});

}  // namespace
}  // namespace cli
