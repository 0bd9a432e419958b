#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace sim {

struct StandardRoute {
  std::string_view adep;
  std::string_view ades;
  std::string_view code;
  std::string_view description;
  std::string_view waypoints;  // route text as in item 15 of a flight plan
  bool domestic;
};

std::span<const StandardRoute> routes();

// An empty departure or destination matches any; international ones only when asked for.
std::vector<const StandardRoute*> routesBetween(std::string_view adep, std::string_view ades,
                                                bool domesticOnly);

const StandardRoute* findRoute(std::string_view adep, std::string_view ades, std::string_view code);

}  // namespace sim
