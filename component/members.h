#pragma once

#include "enumerator.h"
#include "object.h"

#include <ktpnaips/platform/text.h>

#include <cstdint>
#include <utility>

/// The members of the component's classes: those that several have alike as layers, the others by
/// one line each, which take their types from the type library's interface.
namespace ktpnaips::component {

/// A part of a request.
template <class T, class Interface>
class PartObject : public Object<T, Interface, ::IAppendable> {
 public:
  using Object<T, Interface, ::IAppendable>::Object;

  STDMETHODIMP appendTo(IDispatch* parent, BSTR namespaceUri) override {
    return this->attempt([&] { this->object().appendTo(toNode(parent), argument(namespaceUri)); });
  }
};

template <class T, class Interface>
class PointObject : public Object<T, Interface, ::Point, ::IAppendable> {
 public:
  using Object<T, Interface, ::Point, ::IAppendable>::Object;

  STDMETHODIMP appendTo(IDispatch* parent, BSTR namespaceUri) override {
    return this->attempt([&] { this->object().appendTo(toNode(parent), argument(namespaceUri)); });
  }
  STDMETHODIMP toString(BSTR* text) override {
    return this->answer(text, [this] { return this->object().toString(); });
  }
};

template <class T, class Interface>
class RequestObject : public PartObject<T, Interface> {
 public:
  using PartObject<T, Interface>::PartObject;

  STDMETHODIMP get_abstractReq(_AbstractRequest** value) override {
    return this->answer(value, [this] { return this->part(this->object().abstractReq()); });
  }
  STDMETHODIMP submit(Parameter<decltype(&Interface::submit), 0> response) override {
    return this->answer(response, [this] { return this->object().submit(); });
  }
};

template <class T, class Interface>
class PeriodRequestObject : public RequestObject<T, Interface> {
 public:
  using RequestObject<T, Interface>::RequestObject;

  STDMETHODIMP get_briefingReq(_BriefingRequest** value) override {
    return this->answer(value, [this] { return this->part(this->object().briefingReq()); });
  }
};

template <class T, class... Interfaces>
class CommonResponseObject : public Object<T, Interfaces...> {
 public:
  using Object<T, Interfaces...>::Object;

  STDMETHODIMP get_Error(VARIANT_BOOL* value) override {
    return this->answer(value, [this] { return this->object().Error(); });
  }
  STDMETHODIMP put_Error(VARIANT_BOOL value) override {
    return this->attempt([&] { this->object().Error(argument(value)); });
  }
  STDMETHODIMP get_ErrorText(BSTR* value) override {
    return this->answer(value, [this] { return this->object().ErrorText(); });
  }
  STDMETHODIMP put_ErrorText(BSTR value) override {
    return this->attempt([&] { this->object().ErrorText(argument(value)); });
  }
  STDMETHODIMP get_Payload(IDispatch** value) override {
    return this->answer(value, [this] { return this->object().Payload(); });
  }
  STDMETHODIMP putref_Payload(IDispatch* value) override {
    return this->attempt([&] { this->object().Payload(toNode(value)); });
  }
  STDMETHODIMP get_ResponseDoc(IDispatch** value) override {
    return this->answer(value, [this] { return this->object().ResponseDoc(); });
  }
  STDMETHODIMP putref_ResponseDoc(IDispatch* value) override {
    return this->attempt([&] { this->object().ResponseDoc(toDocument(value)); });
  }
};

template <class T, class Interface>
class ResponseObject : public CommonResponseObject<T, Interface, ::AbstractResponse> {
 public:
  using CommonResponseObject<T, Interface, ::AbstractResponse>::CommonResponseObject;

  STDMETHODIMP get_Outcome(BSTR* value) override {
    return this->answer(value, [this] { return nameOf(this->object().outcome()); });
  }
  STDMETHODIMP get_ErrorCode(LONG* value) override {
    return this->answer(value, [this] {
      return static_cast<std::int32_t>(this->object().errorCode().value_or(0));
    });
  }
  STDMETHODIMP get_Reason(BSTR* value) override {
    return this->answer(value, [this] { return this->object().reason(); });
  }
  STDMETHODIMP get_SentDocument(BSTR* value) override {
    return this->answer(value, [this] { return text::fromUtf8(this->object().sentDocument()); });
  }
};

template <class Base>
class WithSetFlag : public Base {
 public:
  using Base::Base;

  STDMETHODIMP setFlag(LONG bit, VARIANT_BOOL on) override {
    return this->attempt([&] { this->object().setFlag(argument(bit), argument(on)); });
  }
};

/// Adds the option bits to a class, to be read as a property.
template <class Base>
class WithFlags : public WithSetFlag<Base> {
 public:
  using WithSetFlag<Base>::WithSetFlag;

  STDMETHODIMP get_flag(LONG bit, VARIANT_BOOL* value) override {
    return this->answer(value, [&] { return this->object().flag(argument(bit)); });
  }
};

/// Adds the option bits to a class, to be read by an operation.
template <class Base>
class WithFlagOperation : public WithSetFlag<Base> {
 public:
  using WithSetFlag<Base>::WithSetFlag;

  STDMETHODIMP flag(LONG bit, VARIANT_BOOL* value) override {
    return this->answer(value, [&] { return this->object().flag(argument(bit)); });
  }
};

/// Adds a list that is read by `Count` and `Item`.
template <class Base>
class WithItems : public Base {
 public:
  using Base::Base;
  using ItemResult = Parameter<decltype(&Base::Interface::get_Item), 1>;

  STDMETHODIMP get_Count(SHORT* value) override {
    return this->answer(value, [this] { return this->object().Count(); });
  }
  STDMETHODIMP get_Item(SHORT index, ItemResult value) override {
    return this->answer(value, [&] { return this->object().Item(argument(index)); });
  }
};

/// Adds For Each to a list.
template <class Base>
class WithForEach : public Base {
 public:
  using Base::Base;

  STDMETHODIMP get_NewEnum(IUnknown** value) override {
    if (value == nullptr) return E_POINTER;
    *value = nullptr;
    return this->attempt([&] {
      Objects objects;
      for (const auto& each : this->object()) {
        const auto shown = presented(each);
        objects.push_back(shown ? shown.template as<IDispatch>(IID_IDispatch)
                                : com::ComPtr<IDispatch>());
      }
      *value = enumerate(std::move(objects)).detach();
    });
  }
};

}  // namespace ktpnaips::component

#define KTP_PARAMETER(Method, Index) Parameter<decltype(&Interface::Method), Index>

/// A property that hosts read.
#define KTP_READ(Name)                                                   \
  STDMETHODIMP get_##Name(KTP_PARAMETER(get_##Name, 0) value) override { \
    return answer(value, [this] { return object().Name(); });            \
  }

/// A property that hosts read by an index.
#define KTP_READ_AT(Name)                                                                         \
  STDMETHODIMP get_##Name(KTP_PARAMETER(get_##Name, 0) index, KTP_PARAMETER(get_##Name, 1) value) \
      override {                                                                                  \
    return answer(value, [&] { return object().Name(argument(index)); });                         \
  }

#define KTP_PUT(Put, Name)                                   \
  STDMETHODIMP Put(KTP_PARAMETER(Put, 0) value) override {   \
    return attempt([&] { object().Name(argument(value)); }); \
  }

/// A property that hosts read and write.
#define KTP_PROPERTY(Name) KTP_READ(Name) KTP_PUT(put_##Name, Name)

/// A property that holds an object.
#define KTP_REFERENCE(Name) KTP_READ(Name) KTP_PUT(putref_##Name, Name)

/// Operations without, with one, two and three arguments.
#define KTP_ACTION(Name)                         \
  STDMETHODIMP Name() override {                 \
    return attempt([this] { object().Name(); }); \
  }
#define KTP_ACTION_1(Name)                                   \
  STDMETHODIMP Name(KTP_PARAMETER(Name, 0) value) override { \
    return attempt([&] { object().Name(argument(value)); }); \
  }
#define KTP_ACTION_2(Name)                                                                  \
  STDMETHODIMP Name(KTP_PARAMETER(Name, 0) first, KTP_PARAMETER(Name, 1) second) override { \
    return attempt([&] { object().Name(argument(first), argument(second)); });              \
  }
#define KTP_ACTION_3(Name)                                                                      \
  STDMETHODIMP Name(KTP_PARAMETER(Name, 0) first, KTP_PARAMETER(Name, 1) second,                \
                    KTP_PARAMETER(Name, 2) third) override {                                    \
    return attempt([&] { object().Name(argument(first), argument(second), argument(third)); }); \
  }

/// Offers `NameObject` to hosts as `Name`.
#define KTP_OFFER(Name) const Creatable<Name##Object> creatable##Name(CLSID_##Name, L## #Name)
