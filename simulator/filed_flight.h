#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/data/time.h"

namespace sim {

// A flight notification that was filed: a stage of a flight plan, or a SARTime notification.
struct FiledFlight {
  std::string id;     // given by the store
  std::string owner;  // user
  std::string group;  // empty when it was filed for no group
  TimePoint filed;
  std::string aircraft;
  std::string route;
};

class FlightStore {
 public:
  // Beyond a large number the oldest is forgotten.
  void add(FiledFlight flight);

  // Those of the group or, without one, of the owner; of one aircraft unless it is empty.
  std::vector<const FiledFlight*> list(std::string_view owner, std::string_view group,
                                       std::string_view aircraft) const;

 private:
  std::deque<FiledFlight> flights_;
  std::size_t lastId_ = 5000;
};

}  // namespace sim
