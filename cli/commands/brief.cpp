#include "cli/arguments.h"
#include "cli/briefing_output.h"
#include "cli/command.h"
#include "cli/usage_error.h"

#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace cli {
namespace {

using ktpnaips::AreaBriefingRqs;
using ktpnaips::BriefingRequest;
using ktpnaips::FlagWord;
using ktpnaips::LocationBriefingRqs;
using ktpnaips::MetBriefingRqs;

struct FlagOption {
  const char* name;
  std::int32_t bit;
  const char* help;
};

constexpr std::array areaFlags{
    FlagOption{"--met", 0, "MET"},
    FlagOption{"--ntm", 1, "NOTAM"},
    FlagOption{"--hon", 2, "Head-office NOTAM"},
    FlagOption{"--charts", 3, "Charts"},
    FlagOption{"--mid-sigwx-gpwt", 4, "Mid-level SIGWX and grid-point wind charts"},
    FlagOption{"--hi", 5, "Charts of the high variant instead of the low"}};

constexpr std::array locationFlags{FlagOption{"--met", 0, "MET"}, FlagOption{"--ntm", 1, "NOTAM"},
                                   FlagOption{"--hon", 2, "Head-office NOTAM"},
                                   FlagOption{"--sigmet", 3, "SIGMET"}};

constexpr std::array<std::pair<std::wstring_view, std::int32_t>, 8> messageTypes{{{L"TAF", 0},
                                                                                  {L"TTF", 1},
                                                                                  {L"METAR", 2},
                                                                                  {L"SPECI", 3},
                                                                                  {L"AQNH", 4},
                                                                                  {L"SIGMET", 5},
                                                                                  {L"AIRMET", 7},
                                                                                  {L"ATIS", 8}}};

template <class Options>
void addFlags(CLI::App& app, const Options& options, FlagWord& word) {
  for (const auto& [name, bit, help] : options) {
    addFlag(app, name, help, [&word, flag = bit] { word.setFlag(flag, true); });
  }
}

void setMessageType(FlagWord& word, std::wstring_view type) {
  const auto* found =
      std::ranges::find(messageTypes, type, [](const auto& each) { return each.first; });
  if (found == messageTypes.end()) {
    throw UsageError(fmt::format(
        "--type {} is unknown: give TAF, TTF, METAR, SPECI, AQNH, SIGMET, AIRMET or ATIS",
        ktpnaips::text::toUtf8(type)));
  }
  word.setFlag(found->second, true);
}

const Registered briefArea({"brief", "area", "Briefing for up to 5 forecast areas",
                            "naips brief area 20 21 --met --charts --out charts",
                            [](CLI::App& app) -> Run {
                              const auto request = std::make_shared<AreaBriefingRqs>();
                              addTexts(app, "AREA", "Forecast areas", [=](auto text) {
                                request->addArea(text);
                              })->required();
                              addFlags(app, areaFlags, *request);
                              addPeriod(app, request->briefingReq());
                              return briefing(request);
                            }});

const Registered briefLocation({"brief", "location", "Briefing for up to 12 locations",
                                "naips brief location YSSY YMML --met --ntm --hours 6",
                                [](CLI::App& app) -> Run {
                                  const auto request = std::make_shared<LocationBriefingRqs>();
                                  addTexts(app, "LOC", "Location codes", [=](auto text) {
                                    request->addLocation(text);
                                  })->required();
                                  addFlags(app, locationFlags, *request);
                                  addPeriod(app, request->briefingReq());
                                  return briefing(request);
                                }});

const Registered briefMet({"brief", "met", "MET messages for up to 4 locations",
                           "naips brief met YSSY --type TAF --type METAR",
                           [](CLI::App& app) -> Run {
                             const auto request = std::make_shared<MetBriefingRqs>();
                             addTexts(app, "LOC", "Location codes", [=](auto text) {
                               request->addLocation(text);
                             })->required();
                             addTexts(app, "--type", "Type of message; repeatable", [=](auto text) {
                               setMessageType(*request, text);
                             })->type_name("{TAF,TTF,METAR,SPECI,AQNH,SIGMET,AIRMET,ATIS}");
                             addPeriod(app, request->briefingReq());
                             return briefing(request);
                           }});

const Registered briefPlain({"brief", "plain", "Briefing for a period alone",
                             "naips brief plain --from 2026-12-01T22:00Z --till 2026-12-02T04:00Z",
                             [](CLI::App& app) -> Run {
                               const auto request = std::make_shared<BriefingRequest>();
                               addPeriod(app, *request);
                               return briefing(request);
                             }});

}  // namespace
}  // namespace cli
