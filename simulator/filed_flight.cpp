#include "simulator/filed_flight.h"

#include <utility>

#include "simulator/data/text.h"

namespace sim {
namespace {

constexpr std::size_t keptFlights = 10000;

}  // namespace

void FlightStore::add(FiledFlight flight) {
  flight.id = std::to_string(++lastId_);
  flights_.push_back(std::move(flight));
  if (flights_.size() > keptFlights) {
    flights_.pop_front();
  }
}

std::vector<const FiledFlight*> FlightStore::list(std::string_view owner, std::string_view group,
                                                  std::string_view aircraft) const {
  std::vector<const FiledFlight*> found;
  for (const FiledFlight& flight : flights_) {
    const bool asked =
        group.empty() ? flight.owner == owner : equalIgnoringCase(flight.group, group);
    if (asked && (aircraft.empty() || equalIgnoringCase(flight.aircraft, aircraft))) {
      found.push_back(&flight);
    }
  }
  return found;
}

}  // namespace sim
