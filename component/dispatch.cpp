#include "dispatch.h"

#include "classes.h"
#include "failure.h"
#include "host_point.h"
#include "module.h"

#include <string_view>
#include <utility>
#include <vector>

namespace ktpnaips::component::dispatch {
namespace {

constexpr std::wstring_view source = L"Brevank";

/// What hosts may mean by a call that names no member of its kind: some know one way only of giving
/// a property an object, and some write a property with an index as a method.
WORD alsoMeant(WORD flags) noexcept {
  switch (flags) {
    case DISPATCH_METHOD:
      return DISPATCH_PROPERTYGET;
    case DISPATCH_PROPERTYPUT:
      return DISPATCH_PROPERTYPUTREF;
    case DISPATCH_PROPERTYPUTREF:
      return DISPATCH_PROPERTYPUT;
    default:
      return 0;
  }
}

IDispatch* objectIn(const VARIANT& argument) noexcept {
  switch (V_VT(&argument)) {
    case VT_DISPATCH:
      return V_DISPATCH(&argument);
    case VT_DISPATCH | VT_BYREF:
      return *V_DISPATCHREF(&argument);
    case VT_VARIANT | VT_BYREF:
      return objectIn(*V_VARIANTREF(&argument));
    default:
      return nullptr;
  }
}

bool isOurs(IDispatch* object) {
  com::ComPtr<IUnknown> held;
  return SUCCEEDED(
      object->QueryInterface(Held::id(), reinterpret_cast<void**>(held.put())));  // NOLINT
}

/// Arguments in which a host's objects implement `Point`, so far as they can.
class PointArguments {
 public:
  explicit PointArguments(const DISPPARAMS& arguments)
      : parameters_(arguments), values_(arguments.rgvarg, arguments.rgvarg + arguments.cArgs) {
    for (VARIANT& value : values_) {
      IDispatch* const object = objectIn(value);
      if (object == nullptr || isOurs(object)) continue;
      auto point = pointByName(object);
      if (!point) continue;
      V_VT(&value) = VT_DISPATCH;
      V_DISPATCH(&value) = point.get();
      points_.push_back(std::move(point));
    }
    parameters_.rgvarg = values_.data();
  }

  [[nodiscard]] bool hasSome() const noexcept { return !points_.empty(); }
  DISPPARAMS* parameters() noexcept { return &parameters_; }

 private:
  DISPPARAMS parameters_;
  std::vector<VARIANT> values_;  // the host's, which are not ours to clear
  std::vector<com::ComPtr<::Point>> points_;
};

/// An object may come by any of its interfaces; hosts that go on by name need its default one.
void giveDefaultInterface(VARIANT& result) {
  if (V_VT(&result) != VT_DISPATCH || V_DISPATCH(&result) == nullptr) return;
  const auto object = com::ComPtr<IDispatch>::attach(V_DISPATCH(&result));
  V_DISPATCH(&result) = nullptr;
  V_DISPATCH(&result) = object.as<IDispatch>(IID_IDispatch).detach();
}

/// An argument that does not have the interface is a mismatch, too.
bool isMismatch(HRESULT result) noexcept {
  return result == DISP_E_TYPEMISMATCH || result == E_NOINTERFACE;
}

/// One call, in all the ways in which hosts may mean it.
class Call {
 public:
  Call(ITypeInfo* type, void* object, DISPID member, VARIANT* result, EXCEPINFO* exception,
       UINT* wrongArgument) noexcept
      : type_(type),
        object_(object),
        member_(member),
        result_(result),
        exception_(exception),
        wrongArgument_(wrongArgument) {}

  HRESULT run(WORD flags, DISPPARAMS* arguments) {
    const HRESULT done = runAs(flags, arguments);
    if (!isMismatch(done)) return done;
    PointArguments points(*arguments);
    const HRESULT again = points.hasSome() ? runAs(flags, points.parameters()) : done;
    return isMismatch(again) ? DISP_E_TYPEMISMATCH : again;
  }

 private:
  HRESULT runAs(WORD flags, DISPPARAMS* arguments) {
    const HRESULT done = invoke(flags, arguments);
    const WORD other = alsoMeant(flags);
    return done == DISP_E_MEMBERNOTFOUND && other != 0 ? invoke(other, arguments) : done;
  }

  HRESULT invoke(WORD flags, DISPPARAMS* arguments) {
    const HRESULT done =
        type_->Invoke(object_, member_, flags, arguments, result_, exception_, wrongArgument_);
    const bool sets = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (done == DISP_E_BADPARAMCOUNT && sets && !hasSetter()) return DISP_E_MEMBERNOTFOUND;
    return done;
  }

  /// Some systems take the value that a read-only property is set to for an argument too many.
  bool hasSetter() {
    UINT index = 0;
    const auto type = com::ComPtr<ITypeInfo>::share(type_).as<ITypeInfo2>(IID_ITypeInfo2);
    return SUCCEEDED(type->GetFuncIndexOfMemId(member_, INVOKE_PROPERTYPUT, &index)) ||
           SUCCEEDED(type->GetFuncIndexOfMemId(member_, INVOKE_PROPERTYPUTREF, &index));
  }

  ITypeInfo* type_;
  void* object_;
  DISPID member_;
  VARIANT* result_;
  EXCEPINFO* exception_;
  UINT* wrongArgument_;
};

}  // namespace

HRESULT giveTypeInfo(REFIID interfaceId, UINT index, ITypeInfo** info) noexcept {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return attempt(source, [&] { *info = module::typeInfo(interfaceId).detach(); });
}

HRESULT idsOfNames(REFIID interfaceId, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  HRESULT found = S_OK;
  const HRESULT attempted = attempt(
      source, [&] { found = module::typeInfo(interfaceId)->GetIDsOfNames(names, count, ids); });
  return FAILED(attempted) ? attempted : found;
}

HRESULT invoke(REFIID interfaceId, void* object, DISPID member, WORD flags, DISPPARAMS* arguments,
               VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept {
  if (arguments == nullptr) return E_INVALIDARG;
  HRESULT done = S_OK;
  const HRESULT attempted = attempt(source, [&] {
    const auto type = module::typeInfo(interfaceId);
    done = Call(type.get(), object, member, result, exception, wrongArgument).run(flags, arguments);
    if (SUCCEEDED(done) && result != nullptr) giveDefaultInterface(*result);
  });
  return FAILED(attempted) ? attempted : done;
}

}  // namespace ktpnaips::component::dispatch
