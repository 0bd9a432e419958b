#include "host_point.h"

#include "failure.h"
#include "module.h"
#include "values.h"

#include <ktpnaips/platform/runtime_fault.h>

#include <dispex.h>

#include <atomic>
#include <span>
#include <utility>

namespace ktpnaips::component {
namespace {

/// What import libraries do not have on every compiler.
constexpr IID extendedDispatch = {
    0xA6EF9860, 0xC720, 0x11D0, {0x93, 0x37, 0x00, 0xA0, 0xC9, 0x0D, 0xCA, 0xA9}};

/// Script engines keep the members of their objects behind the extended interface; not all of them
/// answer for them by the plain one, too.
HRESULT idOfName(IDispatch* object, std::wstring_view name, DISPID& id) {
  void* extended = nullptr;
  if (SUCCEEDED(object->QueryInterface(extendedDispatch, &extended))) {
    const auto script = com::ComPtr<IDispatchEx>::attach(static_cast<IDispatchEx*>(extended));
    return script->GetDispID(com::Bstr(name).get(), fdexNameCaseInsensitive, &id);
  }
  std::wstring text(name);
  LPOLESTR spelled = text.data();
  return object->GetIDsOfNames(IID_NULL, &spelled, 1, LOCALE_USER_DEFAULT, &id);
}

/// Frees what a call that failed has told about it.
struct Exception : EXCEPINFO {
  Exception() noexcept : EXCEPINFO{} {}
  Exception(const Exception&) = delete;
  Exception& operator=(const Exception&) = delete;
  ~Exception() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
    SysFreeString(bstrHelpFile);
  }

  [[noreturn]] void raise() {
    if (pfnDeferredFillIn != nullptr) pfnDeferredFillIn(this);
    const HRESULT number = wCode != 0 ? wCode : scode;
    const std::wstring_view text(bstrDescription, SysStringLen(bstrDescription));
    if (text.empty()) checkHost(number);
    throwHostFailure(number, text);
  }
};

/// Implements `Point` for an object that answers to names only. For everything else it is that
/// object, so that the host meets its own again.
class PointByName final : public ::Point {
 public:
  explicit PointByName(com::ComPtr<IDispatch> object) noexcept : object_(std::move(object)) {}

  STDMETHODIMP QueryInterface(REFIID interfaceId, void** object) override {
    if (interfaceId != __uuidof(::Point)) return object_->QueryInterface(interfaceId, object);
    if (object == nullptr) return E_POINTER;
    *object = static_cast<::Point*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override { return object_->GetTypeInfoCount(count); }
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    return object_->GetTypeInfo(index, locale, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) override {
    return object_->GetIDsOfNames(reserved, names, count, locale, ids);
  }
  STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                      DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                      UINT* wrongArgument) override {
    return object_->Invoke(member, reserved, locale, flags, arguments, result, exception,
                           wrongArgument);
  }

  STDMETHODIMP appendTo(IDispatch* parent, BSTR namespaceUri) override {
    return attempt(L"Brevank.Point", [&] {
      VARIANT arguments[2];  // the last one first; the caller's, so not cleared
      V_VT(&arguments[0]) = VT_BSTR;
      V_BSTR(&arguments[0]) = namespaceUri;
      V_VT(&arguments[1]) = VT_DISPATCH;
      V_DISPATCH(&arguments[1]) = parent;
      call(L"appendTo", arguments);
    });
  }
  STDMETHODIMP toString(BSTR* text) override {
    if (text == nullptr) return E_POINTER;
    *text = nullptr;
    return attempt(L"Brevank.Point", [&] { give(text, call(L"toString", {}).view()); });
  }

 private:
  ~PointByName() = default;

  com::Variant call(std::wstring_view name, std::span<VARIANT> arguments) {
    DISPID id = DISPID_UNKNOWN;
    checkHost(idOfName(object_.get(), name, id));
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    com::Variant result;
    Exception exception;
    const HRESULT called = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                           &parameters, result.put(), &exception, nullptr);
    if (called == DISP_E_EXCEPTION) exception.raise();
    checkHost(called);
    return result;
  }

  com::ComPtr<IDispatch> object_;
  std::atomic<ULONG> references_{1};
  module::Use use_;
};

}  // namespace

HostPoint::HostPoint(com::ComPtr<::Point> point) : point_(std::move(point)) {}

std::shared_ptr<HostPoint> HostPoint::over(IUnknown* object) {
  void* point = nullptr;
  if (FAILED(object->QueryInterface(__uuidof(::Point), &point))) {
    throw RuntimeFault(fault::typeMismatch);
  }
  return std::make_shared<HostPoint>(com::ComPtr<::Point>::attach(static_cast<::Point*>(point)));
}

com::ComPtr<IUnknown> HostPoint::object() const {
  return com::ComPtr<IUnknown>::share(point_.get());
}

void HostPoint::appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const {
  com::ComPtr<IDispatch> node;
  give(node.put(), parent);
  SetErrorInfo(0, nullptr);  // what it leaves is its own
  checkHost(point_->appendTo(node.get(), com::Bstr(namespaceUri).get()));
}

std::wstring HostPoint::toString() const {
  com::Bstr text;
  SetErrorInfo(0, nullptr);
  checkHost(point_->toString(text.put()));
  return std::wstring(text.view());
}

com::ComPtr<::Point> pointByName(IDispatch* object) {
  DISPID id = DISPID_UNKNOWN;
  if (FAILED(idOfName(object, L"appendTo", id))) return {};
  return com::ComPtr<::Point>::attach(new PointByName(com::ComPtr<IDispatch>::share(object)));
}

}  // namespace ktpnaips::component
