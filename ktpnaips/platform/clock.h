#pragma once

#include <chrono>

namespace ktpnaips::clock {

/// The local wall-clock time, to the second.
std::chrono::local_seconds now();

}  // namespace ktpnaips::clock
