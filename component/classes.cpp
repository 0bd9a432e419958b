#include "classes.h"

#include "failure.h"
#include "host_point.h"
#include "lock.h"
#include "module.h"

#include <ktpnaips/platform/runtime_fault.h>

#include <algorithm>
#include <exception>
#include <map>
#include <utility>

namespace ktpnaips::component {
namespace {

constexpr IID heldId = {
    0x9A3B1C52, 0x6C8E, 0x4E0B, {0x8F, 0x1D, 0x27, 0x5E, 0x90, 0xC4, 0xB6, 0x3A}};

std::vector<Class>& offeredClasses() {
  static std::vector<Class> offered;
  return offered;
}

// A part of an object may stand where the object stands, so an address alone does not tell.
using Key = std::pair<const void*, std::type_index>;

SRWLOCK presentLock = SRWLOCK_INIT;
std::map<Key, Held*> presentObjects;

com::ComPtr<Held> heldBehind(IUnknown* given) {
  void* held = nullptr;
  if (FAILED(given->QueryInterface(heldId, &held))) return {};
  return com::ComPtr<Held>::attach(static_cast<Held*>(held));
}

}  // namespace

const IID& Held::id() noexcept {
  return heldId;
}

const std::vector<Class>& classes() {
  return offeredClasses();
}

const Class& classOf(std::type_index type) {
  const auto found = std::ranges::find(classes(), type, &Class::type);
  if (found == classes().end()) throw RuntimeFault(fault::internalError);
  return *found;
}

std::wstring programId(const Class& offered) {
  return L"Brevank." + std::wstring(offered.name);
}

com::ComPtr<ITypeInfo> classInfo(std::type_index type) {
  const CLSID* const id = classOf(type).id;
  if (id == nullptr) com::throwFailure(TYPE_E_ELEMENTNOTFOUND);
  return module::typeInfo(*id);
}

HRESULT failure(std::type_index source) noexcept {
  std::wstring name;
  try {
    name = programId(classOf(source));
  } catch (const std::exception&) {
    name.clear();  // the failure is what matters
  }
  return failure(std::wstring_view(name));
}

Offered::Offered(const Class& offered) {
  offeredClasses().push_back(offered);
}

com::ComPtr<Held> present(std::type_index type, std::shared_ptr<void> object) {
  const Key key(object.get(), type);
  const Locked lock(presentLock);
  Held*& known = presentObjects[key];
  if (known != nullptr && known->retainLiving()) return com::ComPtr<Held>::attach(known);
  // Whatever happens here, nothing may be released under the lock: that would come back to it.
  auto wrapped = classOf(type).wrap(object);
  known = wrapped.get();
  return wrapped;
}

void forget(Held& released) noexcept {
  const Key key(released.held().get(), released.type());
  const Locked lock(presentLock);
  const auto known = presentObjects.find(key);
  if (known != presentObjects.end() && known->second == &released) presentObjects.erase(known);
}

std::shared_ptr<void> objectBehind(std::type_index type, IUnknown* given) {
  if (given == nullptr) return {};
  const auto held = heldBehind(given);
  if (!held || held->type() != type) throw RuntimeFault(fault::typeMismatch);
  return held->held();
}

std::shared_ptr<Point> pointBehind(IUnknown* given) {
  if (given == nullptr) return {};
  const auto held = heldBehind(given);
  if (!held) return HostPoint::over(given);
  auto point = held->heldPoint();
  if (point == nullptr) throw RuntimeFault(fault::typeMismatch);
  return point;
}

com::ComPtr<IUnknown> hostObjectOf(const Point& point) {
  const auto* host = dynamic_cast<const HostPoint*>(&point);
  return host != nullptr ? host->object() : com::ComPtr<IUnknown>();
}

}  // namespace ktpnaips::component
