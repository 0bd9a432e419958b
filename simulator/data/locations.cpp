#include "simulator/data/locations.h"

#include <algorithm>
#include <string>

#include "simulator/data/locations_tables.h"
#include "simulator/data/text.h"

namespace sim {

namespace {

std::vector<Location> mergeTables() {
  std::vector<Location> all;
  for (const auto part : {southEastLocations(), northEastLocations(), centralAndWesternLocations(),
                          pointLocations()}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  std::ranges::sort(all, {}, &Location::code);
  return all;
}

}  // namespace

std::span<const Location> locations() {
  static const std::vector<Location> all = mergeTables();
  return all;
}

const Location* findLocation(std::string_view code) {
  const auto all = locations();
  const std::string wanted = upperCase(code);
  const auto found = std::ranges::lower_bound(all, std::string_view(wanted), {}, &Location::code);
  return found != all.end() && found->code == wanted ? &*found : nullptr;
}

std::vector<const Location*> search(std::string_view partial) {
  std::vector<const Location*> byCode;
  std::vector<const Location*> byName;
  if (partial.empty()) {
    return byCode;
  }
  const std::string wanted = upperCase(partial);
  for (const Location& location : locations()) {
    if (location.code.starts_with(wanted)) {
      byCode.push_back(&location);
    } else if (location.name.find(wanted) != std::string_view::npos) {
      byName.push_back(&location);
    }
  }
  byCode.insert(byCode.end(), byName.begin(), byName.end());
  return byCode;
}

}  // namespace sim
