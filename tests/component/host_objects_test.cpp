#include <brevank.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/component/component.h"

using namespace component;

namespace {

/// What objects of a host's own have in common: they live on the test's stack, count their
/// references and know no type information.
template <class Interface>
class HostObject : public Interface {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ||
                         IsEqualIID(id, __uuidof(Interface));
    *object = isKnown ? this : nullptr;
    if (!isKnown) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return DISP_E_MEMBERNOTFOUND;
  }

  ULONG references() const { return references_; }

 protected:
  ~HostObject() = default;

 private:
  ULONG references_ = 1;
};

/// Writes an element "here" under a DOM node.
void writeHere(IDispatch* parent) {
  const Object element(parent);
  const Object document = object(get(element, L"ownerDocument"));
  const Object own = object(call(document, L"createElement", {L"here"}));
  call(element, L"appendChild", {_variant_t(own.Get())});
}

/// A place of the host's own, which may fail to write itself.
class HostPoint final : public HostObject<Point> {
 public:
  explicit HostPoint(HRESULT result = S_OK) : result_(result) {}

  HRESULT STDMETHODCALLTYPE appendTo(IDispatch* parent, BSTR namespaceUri) override {
    namespaceUri_ = namespaceUri;
    if (SUCCEEDED(result_)) writeHere(parent);
    return result_;
  }
  HRESULT STDMETHODCALLTYPE toString(BSTR* text) override {
    *text = SysAllocString(L"HERE");
    return S_OK;
  }

  const std::wstring& namespaceUri() const { return namespaceUri_; }

 private:
  HRESULT result_;
  std::wstring namespaceUri_;
};

/// The same for a host that knows members by their names only, as scripts do.
class ScriptPoint final : public HostObject<IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                          DISPID* ids) override {
    ids[0] = _wcsicmp(names[0], L"appendTo") == 0 ? appendToId : DISPID_UNKNOWN;
    return ids[0] == appendToId ? S_OK : DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                   EXCEPINFO*, UINT*) override {
    if (id != appendToId || arguments->cArgs != 2) return DISP_E_MEMBERNOTFOUND;
    writeHere(arguments->rgvarg[1].pdispVal);
    return S_OK;
  }

 private:
  static constexpr DISPID appendToId = 7;
};

/// A call that was given an object of another kind, whichever of the two results says so.
bool isTypeMismatch(HRESULT code) {
  constexpr HRESULT fault = static_cast<HRESULT>(0x800A000D);
  return code == DISP_E_TYPEMISMATCH || code == fault;
}

class HostObjects : public component::Test {};

TEST_F(HostObjects, APointOfTheHostIsAskedToAppendItself) {
  HostPoint point;
  {
    const Object route = create("SPFIBRoute");
    call(route, L"Add", {_variant_t(static_cast<IDispatch*>(&point))});
    EXPECT_EQ(written(route),
              L"<root><ndd:route><ndd:waypoints><here/></ndd:waypoints></ndd:route></root>");
    EXPECT_EQ(point.namespaceUri(), L"urn:x");
  }
  EXPECT_EQ(point.references(), 1U) << "the route has let it go";
}

TEST_F(HostObjects, APointOfTheHostComesBackAsTheSameObject) {
  HostPoint point;
  {
    const Object segment = create("ICAORouteSegment");
    set(segment, L"Waypoint", &point);
    EXPECT_EQ(object(get(segment, L"Waypoint")).Get(), static_cast<IDispatch*>(&point));
    const Object light = create("FirstLastLightRqs");
    set(light, L"Point", &point);
    EXPECT_EQ(object(get(light, L"Point")).Get(), static_cast<IDispatch*>(&point));
    const Object route = create("SPFIBRoute");
    call(route, L"Add", {_variant_t(static_cast<IDispatch*>(&point)), L"key"});
    EXPECT_EQ(object(get(route, L"Item", {L"key"})).Get(), static_cast<IDispatch*>(&point));
    set(segment, L"Waypoint", nullptr);
    EXPECT_FALSE(object(get(segment, L"Waypoint")));
  }
  EXPECT_EQ(point.references(), 1U);
}

TEST_F(HostObjects, AFailureOfAPointOfTheHostReachesTheHost) {
  constexpr HRESULT own = static_cast<HRESULT>(0x800A0BAD);
  HostPoint point(own);
  {
    const Object route = create("SPFIBRoute");
    call(route, L"Add", {_variant_t(static_cast<IDispatch*>(&point))});
    const Object element = newElement();
    const auto outcome =
        invoke(route.Get(), L"appendTo", DISPATCH_METHOD, {_variant_t(element.Get()), L"urn:x"});
    EXPECT_EQ(outcome.code, own);
  }
  EXPECT_EQ(point.references(), 1U);
}

TEST_F(HostObjects, APointOfAScriptIsAskedByName) {
  ScriptPoint point;
  {
    const Object segment = create("ICAORouteSegment");
    set(segment, L"Waypoint", &point);
    EXPECT_EQ(object(get(segment, L"Waypoint")).Get(), static_cast<IDispatch*>(&point));
    EXPECT_NE(written(segment).find(L"<here/>"), std::wstring::npos);
  }
  EXPECT_EQ(point.references(), 1U);
}

TEST_F(HostObjects, WhatIsNoPointIsRefused) {
  const Object route = create("SPFIBRoute");
  const Object element = newElement();
  EXPECT_TRUE(isTypeMismatch(
      invoke(route.Get(), L"Add", DISPATCH_METHOD, {_variant_t(element.Get())}).code));
  EXPECT_EQ(get(route, L"Count").lVal, 0);
}

TEST_F(HostObjects, AHostsDocumentFillsAResponse) {
  const Object response = create("AuthenticateRsp");
  const Object element = newElement();
  const Object document = object(get(element, L"ownerDocument"));
  set(response, L"ResponseDoc", document.Get());
  EXPECT_EQ(object(get(response, L"ResponseDoc")), document);
  EXPECT_EQ(text(get(response, L"ErrorText")), L"SOAP Fault: Not a SOAP response\r\n");
  EXPECT_TRUE(isTypeMismatch(invoke(response.Get(), L"ResponseDoc", DISPATCH_PROPERTYPUTREF,
                                    {_variant_t(create("NAIPSConfig").Get())})
                                 .code));
}

}  // namespace
