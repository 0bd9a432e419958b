#pragma once

#include <cstdint>
#include <string_view>

namespace sim {

// Repeatable disorder: the same on every machine.
std::uint64_t scramble(std::uint64_t value);
std::uint64_t seedOf(std::string_view text);

double noise(std::uint64_t seed, std::uint64_t index);                 // -1 to 1
int pick(std::uint64_t seed, std::uint64_t index, int low, int high);  // both included

}  // namespace sim
