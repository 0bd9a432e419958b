#pragma once

#include <ktpnaips/platform/cancellation.h>
#include <ktpnaips/platform/lasting.h>

namespace ktpnaips::platform {

/// One object a thread: made on first use, destroyed when its thread ends or, on Windows, the
/// library is unloaded. The objects of threads that are left when the program ends stay.
class ThreadSlot {
 public:
  ThreadSlot(void* (*make)(), void (*destroy)(void*));
  ThreadSlot(const ThreadSlot&) = delete;
  ThreadSlot& operator=(const ThreadSlot&) = delete;
  ~ThreadSlot();

  /// The calling thread's object.
  void* get();

 private:
  void* (*make_)();
  void (*destroy_)(void*);
  unsigned long index_;
};

/// The calling thread's object of type `T`, default-constructed on first use.
template <class T>
T& threadState() {
  static Lasting<ThreadSlot> slot([]() -> void* { return new T; },
                                  [](void* state) {
                                    const WithoutCancellation whole;
                                    delete static_cast<T*>(state);
                                  });
  return *static_cast<T*>(slot->get());
}

}  // namespace ktpnaips::platform
