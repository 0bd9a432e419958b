#pragma once

#include <chrono>
#include <optional>

#include "simulator/account.h"
#include "simulator/chart_store.h"

namespace sim {

// What the operations of one service share. Handlers run one at a time: nothing here is locked.
struct State {
  AccountStore accounts;
  ChartStore charts;
  std::optional<std::chrono::sys_seconds> fixedNow;

  // The time that answers are made for.
  std::chrono::sys_seconds now() const;
};

}  // namespace sim
