#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace sim {

struct Location {
  std::string_view code;
  std::string_view name;
  std::string_view state;
  std::string_view area;  // code of the GAF area it lies in, such as "NSW-E"
  double latitude;
  double longitude;
  int elevationFt;
  int magVar;  // degrees, positive east
  char kind;   // 'A' aerodrome, 'N' navigation aid, 'W' waypoint
};

// All locations, ordered by code.
std::span<const Location> locations();

// The code is compared without regard to case; nullptr when it is unknown.
const Location* findLocation(std::string_view code);

// Locations whose code begins with, or whose name contains, the text (any case), codes first.
// An empty text finds nothing.
std::vector<const Location*> search(std::string_view partial);

}  // namespace sim
