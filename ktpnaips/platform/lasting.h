#pragma once

#include <memory>
#include <utility>

namespace ktpnaips::platform {

/// True when static objects go because the library is unloaded, false when they go because the
/// program ends.
bool isUnloading() noexcept;

/// A static object that threads may use while the program ends: it is only destroyed when the
/// library is unloaded.
template <class T>
class Lasting {
 public:
  template <class... Arguments>
  explicit Lasting(Arguments&&... arguments) : object_(std::forward<Arguments>(arguments)...) {}
  Lasting(const Lasting&) = delete;
  Lasting& operator=(const Lasting&) = delete;
  ~Lasting() {
    if (isUnloading()) std::destroy_at(&object_);
  }

  T& operator*() noexcept { return object_; }
  const T& operator*() const noexcept { return object_; }
  T* operator->() noexcept { return &object_; }
  const T* operator->() const noexcept { return &object_; }

 private:
  union {
    T object_;
  };
};

}  // namespace ktpnaips::platform
