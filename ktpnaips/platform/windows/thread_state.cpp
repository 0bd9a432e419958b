#include <ktpnaips/platform/thread_state.h>

#include <windows.h>

#include <memory>
#include <new>

namespace ktpnaips::platform {
namespace {

/// What stands in a thread's slot: the callback is told nothing else.
struct Held {
  void* state;
  void (*destroy)(void*);
};

void CALLBACK releaseHeld(void* held) noexcept {
  const std::unique_ptr<Held> owner(static_cast<Held*>(held));
  if (owner != nullptr) owner->destroy(owner->state);
}

}  // namespace

// Fiber-local storage, whose callback runs in every thread that ends and, for all threads, when
// the slot is freed. A thread_local object with a destructor would keep the module loaded for ever.
ThreadSlot::ThreadSlot(void* (*make)(), void (*destroy)(void*))
    : make_(make), destroy_(destroy), index_(FlsAlloc(releaseHeld)) {
  if (index_ == FLS_OUT_OF_INDEXES) throw std::bad_alloc();
}

ThreadSlot::~ThreadSlot() {
  FlsFree(index_);
}

void* ThreadSlot::get() {
  if (auto* held = static_cast<Held*>(FlsGetValue(index_)); held != nullptr) return held->state;
  auto held = std::make_unique<Held>(Held{nullptr, destroy_});
  held->state = make_();
  if (FlsSetValue(index_, held.get()) == 0) {
    destroy_(held->state);
    throw std::bad_alloc();
  }
  return held.release()->state;
}

}  // namespace ktpnaips::platform
