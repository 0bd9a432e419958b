#include "registration.h"

#include "classes.h"
#include "module.h"

#include <brevank.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips::component {
namespace {

constexpr std::wstring_view version = L"1.0";
/// The system's marshaller for interfaces of type libraries.
constexpr std::wstring_view typeLibraryMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr std::wstring_view platform = sizeof(void*) == 8 ? L"win64" : L"win32";

void check(LSTATUS status) {
  if (status != ERROR_SUCCESS) com::throwFailure(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

std::wstring textOf(const GUID& id) {
  std::array<wchar_t, 39> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

std::wstring operator/(std::wstring_view folder, std::wstring_view key) {
  return std::wstring(folder) + L'\\' + std::wstring(key);
}

/// The folder of class registrations in a scope.
class Registry {
 public:
  explicit Registry(Scope scope)
      : root_(scope == Scope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER) {}

  void write(const std::wstring& key, std::wstring_view value,
             const wchar_t* name = nullptr) const {
    const std::wstring text(value);
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    check(RegSetKeyValueW(root_, path(key).c_str(), name, REG_SZ, text.c_str(), bytes));
  }

  /// Removes the key with all below it.
  void remove(const std::wstring& key) const {
    const LSTATUS status = RegDeleteTreeW(root_, path(key).c_str());
    if (status != ERROR_FILE_NOT_FOUND && status != ERROR_PATH_NOT_FOUND) check(status);
  }

  /// Removes the key unless there are keys below it.
  void removeUnlessUsed(const std::wstring& key) const {
    DWORD below = 0;
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root_, path(key).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
    const LSTATUS status = RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &below, nullptr,
                                            nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    RegCloseKey(opened);
    check(status);
    if (below == 0) remove(key);
  }

 private:
  static std::wstring path(const std::wstring& key) { return L"Software\\Classes" / key; }

  HKEY root_;
};

struct Interface {
  IID id;
  std::wstring name;
};

/// The automation interfaces of the type library.
std::vector<Interface> interfaces(ITypeLib* library) {
  std::vector<Interface> found;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    TYPEKIND kind{};
    com::check(library->GetTypeInfoType(i, &kind));
    if (kind != TKIND_DISPATCH) continue;
    com::ComPtr<ITypeInfo> info;
    com::check(library->GetTypeInfo(i, info.put()));
    com::Bstr name;
    com::check(info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
    TYPEATTR* attributes = nullptr;
    com::check(info->GetTypeAttr(&attributes));
    found.push_back({attributes->guid, std::wstring(name.view())});
    info->ReleaseTypeAttr(attributes);
  }
  return found;
}

std::wstring libraryKey() {
  return L"TypeLib" / textOf(LIBID_Brevank);
}

void writeClass(const Registry& registry, const Class& offered, const std::wstring& module) {
  const std::wstring id = textOf(*offered.id);
  const std::wstring program = programId(offered);
  const std::wstring versioned = program + L".1";
  const std::wstring key = L"CLSID" / id;
  registry.write(key, program);
  registry.write(key / L"InprocServer32", module);
  registry.write(key / L"InprocServer32", L"Apartment", L"ThreadingModel");
  registry.write(key / L"ProgID", versioned);
  registry.write(key / L"VersionIndependentProgID", program);
  registry.write(key / L"TypeLib", textOf(LIBID_Brevank));
  registry.write(key / L"Version", version);
  registry.write(program, program);
  registry.write(program / L"CLSID", id);
  registry.write(program / L"CurVer", versioned);
  registry.write(versioned, program);
  registry.write(versioned / L"CLSID", id);
}

void removeClass(const Registry& registry, const Class& offered) {
  registry.remove(L"CLSID" / textOf(*offered.id));
  registry.remove(programId(offered));
  registry.remove(programId(offered) + L".1");
}

void writeInterface(const Registry& registry, const Interface& offered) {
  const std::wstring key = L"Interface" / textOf(offered.id);
  registry.write(key, offered.name);
  registry.write(key / L"ProxyStubClsid32", typeLibraryMarshaller);
  registry.write(key / L"TypeLib", textOf(LIBID_Brevank));
  registry.write(key / L"TypeLib", version, L"Version");
}

void writeLibrary(const Registry& registry, ITypeLib* library, const std::wstring& module) {
  com::Bstr description;
  com::check(library->GetDocumentation(-1, nullptr, description.put(), nullptr, nullptr));
  const std::wstring key = libraryKey() / version;
  registry.write(key, description.view());
  registry.write(key / L"0" / platform, module);
  registry.write(key / L"FLAGS", L"0");
  registry.write(key / L"HELPDIR", module.substr(0, module.find_last_of(L'\\')));
}

/// The library may also be registered for the other word size.
void removeLibrary(const Registry& registry) {
  const std::wstring key = libraryKey() / version;
  registry.remove(key / L"0" / platform);
  registry.removeUnlessUsed(key / L"0");
  registry.remove(key / L"FLAGS");
  registry.remove(key / L"HELPDIR");
  registry.removeUnlessUsed(key);
  registry.removeUnlessUsed(libraryKey());
}

void writeAll(const Registry& registry) {
  const std::wstring module = module::path();
  const auto library = module::typeLibrary();
  writeLibrary(registry, library.get(), module);
  for (const Interface& each : interfaces(library.get())) writeInterface(registry, each);
  for (const Class& each : classes()) {
    if (each.make != nullptr) writeClass(registry, each, module);
  }
}

}  // namespace

void registerComponent(Scope scope) {
  try {
    writeAll(Registry(scope));
  } catch (...) {
    unregisterComponent(scope);
    throw;
  }
}

void unregisterComponent(Scope scope) {
  const Registry registry(scope);
  for (const Class& each : classes()) {
    if (each.make != nullptr) removeClass(registry, each);
  }
  for (const Interface& each : interfaces(module::typeLibrary().get())) {
    registry.remove(L"Interface" / textOf(each.id));
  }
  removeLibrary(registry);
  // A user who had no classes before had not even the keys that hold them.
  for (const wchar_t* key : {L"CLSID", L"Interface", L"TypeLib"}) registry.removeUnlessUsed(key);
}

}  // namespace ktpnaips::component
