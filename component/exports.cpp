#include "class_factory.h"
#include "failure.h"
#include "module.h"
#include "registration.h"

#include <algorithm>

using namespace ktpnaips::component;

namespace {

HRESULT registered(bool on, Scope scope) noexcept {
  return attempt(L"Brevank", [&] { on ? registerComponent(scope) : unregisterComponent(scope); });
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) module::loaded(instance);
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** factory) {
  if (factory == nullptr) return E_POINTER;
  *factory = nullptr;
  const auto& offered = classes();
  const auto found = std::ranges::find_if(
      offered, [&](const Class& each) { return each.make != nullptr && *each.id == classId; });
  if (found == offered.end()) return CLASS_E_CLASSNOTAVAILABLE;
  HRESULT given = S_OK;
  const HRESULT made =
      attempt(L"Brevank", [&] { given = factoryOf(*found)->QueryInterface(interfaceId, factory); });
  return FAILED(made) ? made : given;
}

STDAPI DllCanUnloadNow() {
  return module::inUse() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
  return registered(true, Scope::machine);
}

STDAPI DllUnregisterServer() {
  return registered(false, Scope::machine);
}

/// "user" registers for the user alone, which needs no administrator; nothing, for all.
STDAPI DllInstall(BOOL install, PCWSTR scope) {
  const bool forAll = scope == nullptr || *scope == L'\0';
  if (!forAll && lstrcmpiW(scope, L"user") != 0) return E_INVALIDARG;
  return registered(install != FALSE, forAll ? Scope::machine : Scope::user);
}
