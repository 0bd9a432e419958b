#pragma once

#include <cstdint>

namespace ktpnaips::platform {

/// The number of this process; a child that was forked has another than its parent.
std::int64_t processNumber() noexcept;

/// Has `before` called before each fork, and `after` behind it, in the parent and in the child.
void aroundForks(void (*before)(), void (*after)());

}  // namespace ktpnaips::platform
