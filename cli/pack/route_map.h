#pragma once

#include "cli/pack/flight.h"
#include "cli/pack/map_layout.h"

#include <string>
#include <vector>

/// What a route map shows of a flight: the places and legs whose positions are known.
namespace cli::pack {

struct RouteLeg {
  std::string from;
  std::string to;
  MapLeg leg;
};

/// The legs of a stage, then those to its alternate.
std::vector<RouteLeg> legsOf(const Stage& stage);

/// Each place once.
std::vector<MapPoint> mapPoints(const Flight& flight);

/// Each leg once.
std::vector<MapLeg> mapLegs(const Flight& flight);

/// The legs in words, for those who do not see the map.
std::string legsInWords(const Flight& flight);

}  // namespace cli::pack
