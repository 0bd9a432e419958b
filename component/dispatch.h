#pragma once

#include <windows.h>

#include <oaidl.h>

namespace ktpnaips::component {

/// What `IDispatch` does for an interface of the type library, which describes it all.
namespace dispatch {

HRESULT giveTypeInfo(REFIID interfaceId, UINT index, ITypeInfo** info) noexcept;
HRESULT idsOfNames(REFIID interfaceId, LPOLESTR* names, UINT count, DISPID* ids) noexcept;

/// Calls a member of `object`, which is the interface itself. A host's object that answers to
/// names only may stand where a point is taken.
HRESULT invoke(REFIID interfaceId, void* object, DISPID member, WORD flags, DISPPARAMS* arguments,
               VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept;

}  // namespace dispatch

/// A dual interface, by its methods and by their names.
template <class Interface>
class Dual : public Interface {
 public:
  static const IID& id() noexcept { return __uuidof(Interface); }

  STDMETHODIMP GetTypeInfoCount(UINT* count) final {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) final {
    return dispatch::giveTypeInfo(id(), index, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) final {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    return dispatch::idsOfNames(id(), names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) final {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    return dispatch::invoke(id(), static_cast<Interface*>(this), member, flags, arguments, result,
                            exception, wrongArgument);
  }

 protected:
  ~Dual() = default;
};

}  // namespace ktpnaips::component
