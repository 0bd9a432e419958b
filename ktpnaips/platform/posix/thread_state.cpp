#include <ktpnaips/platform/thread_state.h>

#include <pthread.h>

#include <new>

namespace ktpnaips::platform {
namespace {

pthread_key_t newKey(void (*destroy)(void*)) {
  pthread_key_t key{};
  if (pthread_key_create(&key, destroy) != 0) throw std::bad_alloc();
  return key;
}

}  // namespace

// A thread_local object with a destructor ends the program when there is no memory to register it.
ThreadSlot::ThreadSlot(void* (*make)(), void (*destroy)(void*))
    : make_(make), destroy_(destroy), index_(newKey(destroy)) {}

ThreadSlot::~ThreadSlot() {
  pthread_key_delete(static_cast<pthread_key_t>(index_));
}

void* ThreadSlot::get() {
  const auto key = static_cast<pthread_key_t>(index_);
  if (void* const made = pthread_getspecific(key); made != nullptr) return made;
  void* const made = make_();
  if (pthread_setspecific(key, made) != 0) {
    destroy_(made);
    throw std::bad_alloc();
  }
  return made;
}

}  // namespace ktpnaips::platform
