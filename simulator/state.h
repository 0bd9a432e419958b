#pragma once

#include <chrono>
#include <optional>

#include "simulator/account.h"
#include "simulator/bulletin.h"
#include "simulator/chart_store.h"
#include "simulator/filed_flight.h"

namespace sim {

// What the operations of one service share. Handlers run one at a time: nothing here is locked.
struct State {
  AccountStore accounts;
  ChartStore charts;
  BulletinStore bulletins;
  FlightStore flights;
  std::optional<std::chrono::sys_seconds> fixedNow;
  bool strict = false;  // as Options::strict

  // The time that answers are made for.
  std::chrono::sys_seconds now() const;
};

}  // namespace sim
