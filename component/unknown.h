#pragma once

#include "module.h"

#include <atomic>

namespace ktpnaips::component {

template <class Interface>
const IID& idOf() noexcept {
  if constexpr (requires { Interface::id(); }) {
    return Interface::id();
  } else {
    return __uuidof(Interface);
  }
}

/// A counted COM object, made with one reference, whose first interface is its identity and, for
/// automation, its default.
template <class First, class... Others>
class Unknown : public First, public Others... {
 public:
  STDMETHODIMP QueryInterface(REFIID interfaceId, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = interfaceOf(interfaceId);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  Unknown() = default;
  virtual ~Unknown() = default;

  /// Adds a reference unless the last one is already gone.
  bool addReferenceToLiving() noexcept {
    ULONG held = references_;
    while (held != 0 && !references_.compare_exchange_weak(held, held + 1)) {
    }
    return held != 0;
  }

 private:
  void* interfaceOf(REFIID interfaceId) noexcept {
    void* found = nullptr;
    if (interfaceId == IID_IUnknown || interfaceId == idOf<First>()) {
      found = static_cast<First*>(this);
    } else if (interfaceId == IID_IDispatch) {
      if constexpr (requires(First * first, IDispatch * &dispatch) { dispatch = first; }) {
        found = static_cast<First*>(this);
      }
    } else {
      (void)((interfaceId == idOf<Others>() && (found = static_cast<Others*>(this)) != nullptr) ||
             ...);
    }
    return found;
  }

  std::atomic<ULONG> references_{1};
  module::Use use_;
};

}  // namespace ktpnaips::component
