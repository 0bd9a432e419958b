#include <ktpnaips/platform/thread_state.h>

#include <atomic>
#include <memory>
#include <vector>

namespace ktpnaips::platform {
namespace {

using State = std::unique_ptr<void, void (*)(void*)>;

thread_local std::vector<State> states;

void keep(void*) {}

}  // namespace

ThreadSlot::ThreadSlot(void* (*make)(), void (*destroy)(void*)) : make_(make), destroy_(destroy) {
  static std::atomic<unsigned long> slots{0};
  index_ = slots++;
}

ThreadSlot::~ThreadSlot() = default;

void* ThreadSlot::get() {
  while (states.size() <= index_) states.emplace_back(nullptr, keep);
  State& state = states[index_];
  if (state == nullptr) {
    void* made = make_();
    state = State(made, destroy_);
  }
  return state.get();
}

}  // namespace ktpnaips::platform
