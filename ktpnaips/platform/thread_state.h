#pragma once

namespace ktpnaips::platform {

/// One object a thread: made on first use, destroyed when its thread ends or the library is
/// unloaded. Slots live as long as the library.
class ThreadSlot {
 public:
  ThreadSlot(void* (*make)(), void (*destroy)(void*));
  ThreadSlot(const ThreadSlot&) = delete;
  ThreadSlot& operator=(const ThreadSlot&) = delete;
  ~ThreadSlot();  // NOLINT(performance-trivially-destructible): not so on Windows

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
  static ThreadSlot slot([]() -> void* { return new T; },
                         [](void* state) { delete static_cast<T*>(state); });
  return *static_cast<T*>(slot.get());
}

}  // namespace ktpnaips::platform
