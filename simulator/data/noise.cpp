#include "simulator/data/noise.h"

namespace sim {

std::uint64_t scramble(std::uint64_t value) {
  value += 0x9E3779B97F4A7C15U;
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9U;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBU;
  return value ^ (value >> 31);
}

std::uint64_t seedOf(std::string_view text) {
  std::uint64_t seed = 0xCBF29CE484222325U;
  for (const char c : text) {
    seed = (seed ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  }
  return seed;
}

double noise(std::uint64_t seed, std::uint64_t index) {
  const std::uint64_t bits = scramble(seed ^ scramble(index)) >> 11;
  return static_cast<double>(bits) / 4503599627370496.0 - 1;
}

int pick(std::uint64_t seed, std::uint64_t index, int low, int high) {
  const auto range = static_cast<std::uint64_t>(high - low + 1);
  return low + static_cast<int>(scramble(seed ^ scramble(index)) % range);
}

}  // namespace sim
