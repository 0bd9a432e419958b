#pragma once

#include "cli/pack/flight.h"

#include <ktpnaips/briefing/raim.h>
#include <ktpnaips/spfib/location_directory.h>
#include <ktpnaips/spfib/wind_temp_profile.h>

#include <string>
#include <vector>

/// What the requests for a flight are filled with.
namespace cli::pack {

/// The locations that give the flight's places their positions, each once.
std::vector<std::string> locationNames(const Flight& flight);

/// Departures, destinations and alternates, as many together as one RAIM request takes.
std::vector<std::vector<std::string>> raimLocations(const Flight& flight);

void fill(ktpnaips::WindTempProfileRqs& request, const Flight& flight);
void fill(ktpnaips::RAIMRqs& request, const std::vector<std::string>& locations);
void fill(ktpnaips::LocAirspaceDirectoryRqs& request, const std::string& name);

}  // namespace cli::pack
