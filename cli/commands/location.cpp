#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/property_output.h"

#include <ktpnaips/spfib/location_directory.h>

#include <memory>

namespace cli {
namespace {

using ktpnaips::LocAirspaceDetails;

Json coordinates(const LocAirspaceDetails& details) {
  const auto& point = details.Coord();
  if (!point) return nullptr;
  return {{"Lat", point->Lat()}, {"Lon", point->Lon()}};
}

constexpr Shown<LocAirspaceDetails> place[] = {
    {"Key", "KEY", valueOf<&LocAirspaceDetails::Key>},
    {"Name", "NAME", valueOf<&LocAirspaceDetails::Name>},
    {"Coord", "POSITION", coordinates},
    {"Description", "DESCRIPTION", valueOf<&LocAirspaceDetails::Description>, true}};

const Registered findLocation({"", "location", "Look up locations and airspaces",
                               "naips location SY", [](CLI::App& app) -> Run {
                                 const auto request =
                                     std::make_shared<ktpnaips::LocAirspaceDirectoryRqs>();
                                 addText(app, "PARTIAL", "A part of the name", [=](auto text) {
                                   request->PartialName(text);
                                 })->required();
                                 return listing(request, place);
                               }});

}  // namespace
}  // namespace cli
