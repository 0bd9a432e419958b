#include "cli/arguments.h"
#include "cli/briefing_output.h"
#include "cli/command.h"

#include <ktpnaips/briefing/raim.h>

#include <memory>

namespace cli {
namespace {

const Registered predictRaim({"", "raim", "RAIM prediction for up to 20 locations",
                              "naips raim YSSY YMML", [](CLI::App& app) -> Run {
                                const auto request = std::make_shared<ktpnaips::RAIMRqs>();
                                addTexts(app, "LOC", "Location codes", [=](auto text) {
                                  request->addLocation(text);
                                })->required();
                                return briefing(request);
                              }});

}  // namespace
}  // namespace cli
