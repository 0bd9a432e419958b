#include <ktpnaips/platform/lasting.h>

#include <windows.h>

namespace ktpnaips::platform {

// A program's own statics go while its threads run; those of a DLL when it is unloaded, or when the
// threads have been ended.
bool isUnloading() noexcept {
  HMODULE own = nullptr;
  const auto* const here = reinterpret_cast<LPCWSTR>(&isUnloading);  // NOLINT
  return GetModuleHandleExW(
             GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
             here, &own) != 0 &&
         own != GetModuleHandleW(nullptr);
}

}  // namespace ktpnaips::platform
