#pragma once

#include <ktpnaips/platform/runtime_fault.h>

#include <cstdint>
#include <utility>

namespace ktpnaips::test {

/// The number of the fault that `action` throws, or 0 when it throws none.
template <class Action>
std::int32_t faultOf(Action&& action) {
  try {
    std::forward<Action>(action)();
  } catch (const RuntimeFault& fault) {
    return fault.number();
  }
  return 0;
}

}  // namespace ktpnaips::test
