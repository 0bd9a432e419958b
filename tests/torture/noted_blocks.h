#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <mutex>

#include "tests/torture/failing_step.h"

namespace ktpnaips::test {

/// A lock that allocates nothing.
struct Spin {
  void lock() {
    while (flag.test_and_set(std::memory_order_acquire)) {
    }
  }
  void unlock() { flag.clear(std::memory_order_release); }
  std::atomic_flag flag;
};

/// The noted blocks by address, in a table that allocates nothing.
class NotedBlocks {
 public:
  void add(void* address, LiveBlock block) {
    const std::lock_guard lock(spin_);
    if (++count_ > slots_.size() / 2) std::abort();
    std::size_t at = home(address);
    while (slots_[at].address != nullptr) at = next(at);
    slots_[at] = {address, block};
  }

  bool remove(const void* address) {
    if (address == nullptr || count_.load(std::memory_order_relaxed) == 0) return false;
    const std::lock_guard lock(spin_);
    std::size_t at = home(address);
    while (slots_[at].address != nullptr && slots_[at].address != address) at = next(at);
    if (slots_[at].address == nullptr) return false;
    --count_;
    close(at);
    return true;
  }

  void clear() {
    const std::lock_guard lock(spin_);
    slots_.fill({});
    count_ = 0;
  }

  /// Calls `use` for each; it may not allocate.
  template <class Use>
  void forEach(Use use) {
    const std::lock_guard lock(spin_);
    for (const Slot& slot : slots_) {
      if (slot.address != nullptr) use(slot.block);
    }
  }

 private:
  struct Slot {
    void* address;
    LiveBlock block;
  };

  [[nodiscard]] static std::size_t home(const void* address) {
    const auto bits = reinterpret_cast<std::uintptr_t>(address);  // NOLINT: hashed
    return (bits >> 4U) * 0x9E3779B97F4A7C15U >> (64U - slotBits);
  }
  [[nodiscard]] static std::size_t next(std::size_t at) { return (at + 1) % (1U << slotBits); }

  /// Moves back what follows an emptied slot, so that no search ends at it too early.
  void close(std::size_t hole) {
    for (std::size_t at = next(hole); slots_[at].address != nullptr; at = next(at)) {
      const std::size_t wanted = home(slots_[at].address);
      const bool staysBehindHole =
          hole < at ? wanted > hole && wanted <= at : wanted > hole || wanted <= at;
      if (staysBehindHole) continue;
      slots_[hole] = slots_[at];
      hole = at;
    }
    slots_[hole].address = nullptr;
  }

  static constexpr unsigned slotBits = 18;
  Spin spin_;
  std::atomic<std::size_t> count_ = 0;
  std::array<Slot, std::size_t{1} << slotBits> slots_{};
};

}  // namespace ktpnaips::test
