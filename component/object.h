#pragma once

#include "classes.h"
#include "dispatch.h"
#include "failure.h"
#include "unknown.h"
#include "values.h"

#include <brevank.h>

#include <ocidl.h>

#include <concepts>
#include <memory>
#include <string_view>
#include <typeindex>
#include <utility>

namespace ktpnaips::component {

/// A COM object that stands for an object of the library's class `T`. `Default` is the interface
/// of its own; of the others it answers for all members by those of its own.
template <class T, class Default, class... Others>
class Object
    : public Unknown<Dual<Default>, Dual<Others>..., ISupportErrorInfo, IProvideClassInfo, Held> {
 public:
  using Value = T;
  using Interface = Default;

  explicit Object(std::shared_ptr<T> object) noexcept : object_(std::move(object)) {}

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID interfaceId) final {
    const bool supported =
        interfaceId == __uuidof(Default) || ((interfaceId == __uuidof(Others)) || ...);
    return supported ? S_OK : S_FALSE;
  }
  STDMETHODIMP GetClassInfo(ITypeInfo** info) final {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return attempt([&] { *info = component::classInfo(typeid(T)).detach(); });
  }

  [[nodiscard]] std::type_index type() const noexcept final { return typeid(T); }
  [[nodiscard]] std::shared_ptr<void> held() const final { return object_; }
  [[nodiscard]] std::shared_ptr<Point> heldPoint() const final {
    if constexpr (std::derived_from<T, Point>) {
      return object_;
    } else {
      return {};
    }
  }
  bool retainLiving() noexcept final { return this->addReferenceToLiving(); }

 protected:
  ~Object() override { forget(*this); }

  T& object() const noexcept { return *object_; }
  /// A part of the object, which keeps the object alive.
  template <class Part>
  std::shared_ptr<Part> part(Part& inside) const {
    return {object_, &inside};
  }

  /// Runs the body of a call; no exception leaves it.
  template <class Body>
  HRESULT attempt(Body&& body) const noexcept {
    return component::attempt(std::type_index(typeid(T)), std::forward<Body>(body));
  }

  /// The body of a call that gives the host a value.
  template <class Result, class Body>
  HRESULT answer(Result* result, Body&& body) const noexcept {
    if (result == nullptr) return E_POINTER;
    *result = {};
    return attempt([&] { give(result, std::forward<Body>(body)()); });
  }

 private:
  std::shared_ptr<T> object_;
};

template <class Wrapped>
com::ComPtr<Held> wrap(std::shared_ptr<void> object) {
  using Value = typename Wrapped::Value;
  return com::ComPtr<Held>::attach(new Wrapped(std::static_pointer_cast<Value>(std::move(object))));
}

template <class Value>
std::shared_ptr<void> make() {
  return std::make_shared<Value>();
}

/// A class that hosts create by name.
template <class Wrapped>
class Creatable : Offered {
 public:
  using Value = typename Wrapped::Value;
  Creatable(const CLSID& id, std::wstring_view name)
      : Offered({typeid(Value), &id, name, &make<Value>, &wrap<Wrapped>}) {}
};

/// A class of which hosts only receive objects.
template <class Wrapped>
class Received : Offered {
 public:
  explicit Received(std::wstring_view name)
      : Offered({typeid(typename Wrapped::Value), nullptr, name, nullptr, &wrap<Wrapped>}) {}
};

}  // namespace ktpnaips::component
