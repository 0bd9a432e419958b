#pragma once

#include <ktpnaips/platform/windows/com.h>

#include <string>

/// The loaded component: what keeps it loaded, where it is, and its type library.
namespace ktpnaips::component::module {

/// Keeps the module loaded while it lives; every object that a host can hold has one.
class Use {
 public:
  Use() noexcept;
  Use(const Use&) = delete;
  Use& operator=(const Use&) = delete;
  ~Use();
};

/// Keeps the module loaded without an object, as often as it is locked.
void lock(bool on) noexcept;

bool inUse() noexcept;

/// Remembers the module's handle; called once, when it is loaded.
void loaded(HINSTANCE instance) noexcept;

/// Full path of the module.
std::wstring path();

/// The type library in the module's own resources, registered or not.
com::ComPtr<ITypeLib> typeLibrary();

/// The description of an interface or a class. Kept until no object is left.
com::ComPtr<ITypeInfo> typeInfo(const GUID& id);

}  // namespace ktpnaips::component::module
