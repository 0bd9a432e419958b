#include "module.h"

#include "lock.h"

#include <atomic>
#include <cstring>
#include <map>
#include <memory>
#include <utility>

namespace ktpnaips::component::module {
namespace {

struct Before {
  bool operator()(const GUID& a, const GUID& b) const noexcept {
    return std::memcmp(&a, &b, sizeof a) < 0;
  }
};

using TypeInfos = std::map<GUID, com::ComPtr<ITypeInfo>, Before>;

std::atomic<long> uses{0};
HINSTANCE instance = nullptr;
SRWLOCK typesLock = SRWLOCK_INIT;
// Not destroyed with the module: COM must not be called any more then.
TypeInfos* types = nullptr;

void forgetTypes() noexcept {
  std::unique_ptr<TypeInfos> forgotten;
  const Locked lock(typesLock);
  if (!inUse()) forgotten.reset(std::exchange(types, nullptr));
}

com::ComPtr<ITypeInfo> readTypeInfo(const GUID& id) {
  com::ComPtr<ITypeInfo> info;
  com::check(typeLibrary()->GetTypeInfoOfGuid(id, info.put()));
  return info;
}

}  // namespace

Use::Use() noexcept {
  lock(true);
}

Use::~Use() {
  lock(false);
}

void lock(bool on) noexcept {
  if (on) {
    ++uses;
  } else if (--uses == 0) {
    forgetTypes();
  }
}

bool inUse() noexcept {
  return uses != 0;
}

void loaded(HINSTANCE handle) noexcept {
  instance = handle;
}

std::wstring path() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(instance, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) com::throwFailure(HRESULT_FROM_WIN32(GetLastError()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(2 * path.size());
  }
}

com::ComPtr<ITypeLib> typeLibrary() {
  com::ComPtr<ITypeLib> library;
  com::check(LoadTypeLibEx(path().c_str(), REGKIND_NONE, library.put()));
  return library;
}

com::ComPtr<ITypeInfo> typeInfo(const GUID& id) {
  const Locked lock(typesLock);
  if (types == nullptr) types = new TypeInfos;
  auto& known = (*types)[id];
  if (!known) known = readTypeInfo(id);
  return known;
}

}  // namespace ktpnaips::component::module
