#pragma once

#include <ktpnaips/geo/points.h>
#include <ktpnaips/platform/windows/com.h>

#include <concepts>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeindex>
#include <typeinfo>
#include <vector>

namespace ktpnaips::component {

/// How the component finds the object of the library behind an interface that a host hands in.
class Held : public IUnknown {
 public:
  static const IID& id() noexcept;

  /// The library's class of the object.
  [[nodiscard]] virtual std::type_index type() const noexcept = 0;
  [[nodiscard]] virtual std::shared_ptr<void> held() const = 0;
  /// The object as a point; none when it is not one.
  [[nodiscard]] virtual std::shared_ptr<Point> heldPoint() const = 0;
  /// Adds a reference unless the last one is already gone.
  virtual bool retainLiving() noexcept = 0;

 protected:
  ~Held() = default;
};

/// A class of the component.
struct Class {
  std::type_index type;             ///< the library's class
  const CLSID* id;                  ///< in the type library
  std::wstring_view name;           ///< in the type library
  std::shared_ptr<void> (*make)();  ///< null when hosts cannot create it
  com::ComPtr<Held> (*wrap)(std::shared_ptr<void> object);
};

/// Every class, in no particular order.
const std::vector<Class>& classes();
const Class& classOf(std::type_index type);
/// As errors and registration name it: "Brevank.NAIPSConfig".
std::wstring programId(const Class& offered);
/// The description of a class that hosts can create.
com::ComPtr<ITypeInfo> classInfo(std::type_index type);

/// Adds a class to `classes` when the module is loaded.
class Offered {
 public:
  explicit Offered(const Class& offered);
};

/// The one COM object that stands for `object`, which is of the library's class `type`.
com::ComPtr<Held> present(std::type_index type, std::shared_ptr<void> object);
/// Ends that, when the COM object is released for good.
void forget(Held& released) noexcept;

/// The object behind an interface that a host handed in; throws fault 13 when it is not the
/// component's or of another class.
std::shared_ptr<void> objectBehind(std::type_index type, IUnknown* given);
/// As above for any point, a host's own included.
std::shared_ptr<Point> pointBehind(IUnknown* given);
/// The host's own object that `point` stands for, if any.
com::ComPtr<IUnknown> hostObjectOf(const Point& point);

/// The COM object for an object of the library, of whatever class it really is.
template <class T>
com::ComPtr<IUnknown> presented(const std::shared_ptr<T>& object) {
  if (object == nullptr) return {};
  using Value = std::remove_const_t<T>;
  const auto value = std::const_pointer_cast<Value>(object);
  if constexpr (std::same_as<Value, Point>) {
    if (auto host = hostObjectOf(*value)) return host;
  }
  const auto& really = *value;
  const std::type_info& type = typeid(really);
  const auto shown = [&]() -> std::shared_ptr<void> {
    if constexpr (std::is_polymorphic_v<Value>) {
      return {value, dynamic_cast<void*>(value.get())};
    } else {
      return value;
    }
  };
  return com::ComPtr<IUnknown>::attach(present(type, shown()).detach());
}

}  // namespace ktpnaips::component
