#include <brevank.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>

#include "tests/component/component.h"
#include "tests/component/side_by_side.h"
#include "tests/component/type_members.h"

using namespace component;
using members::check;
using Microsoft::WRL::ComPtr;

namespace {

/// Each of these also sees that nothing of the component is left at its end.
class Lifetime : public component::Test {};

ComPtr<IEnumVARIANT> enumerator(const Object& list) {
  DISPPARAMS none{};
  _variant_t value;
  check(list->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT,
                     DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none, &value, nullptr, nullptr),
        "NewEnum");
  ComPtr<IEnumVARIANT> result;
  check(value.punkVal->QueryInterface(IID_PPV_ARGS(&result)), "IEnumVARIANT");
  return result;
}

Object routeOf(std::initializer_list<const wchar_t*> names) {
  const Object route = create("SPFIBRoute");
  for (const wchar_t* name : names) call(route, L"addNamed", {name});
  return route;
}

TEST_F(Lifetime, AnObjectIsCountedUntilItsLastReference) {
  EXPECT_EQ(canUnload(), S_OK);
  Object first = create("NAIPSConfig");
  Object second = first;
  EXPECT_EQ(canUnload(), S_FALSE);
  first.Reset();
  EXPECT_EQ(canUnload(), S_FALSE);
  second.Reset();
  EXPECT_EQ(canUnload(), S_OK);
}

TEST_F(Lifetime, AClassFactoryIsCountedOnlyWhenItLocks) {
  const ComPtr<IClassFactory> classes = factory("NAIPSConfig");
  EXPECT_EQ(classes->LockServer(TRUE), S_OK);
  EXPECT_EQ(canUnload(), S_FALSE);
  EXPECT_EQ(classes->LockServer(FALSE), S_OK);
}

TEST_F(Lifetime, AClassFactoryRefusesWhatItCannotGive) {
  const ComPtr<IClassFactory> classes = factory("NAIPSConfig");
  const Object outer = create("NamedPoint");
  void* object = outer.Get();
  EXPECT_EQ(classes->CreateInstance(outer.Get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(object, nullptr);
  object = outer.Get();
  EXPECT_EQ(classes->CreateInstance(nullptr, IID_IStream, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  object = outer.Get();
  EXPECT_EQ(classObject(IID_IUnknown, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
}

TEST_F(Lifetime, AnEnumeratorWalksWhatTheRouteHeldAndKeepsIt) {
  ComPtr<IEnumVARIANT> points = enumerator(routeOf({L"A", L"B", L"C"}));
  EXPECT_EQ(canUnload(), S_FALSE);
  _variant_t two[2];
  ULONG read = 0;
  EXPECT_EQ(points->Next(2, two, &read), S_OK);
  EXPECT_EQ(read, 2U);
  EXPECT_EQ(text(get(object(two[1]), L"Name")), L"B");
  ComPtr<IEnumVARIANT> copy;
  ASSERT_EQ(points->Clone(&copy), S_OK);
  _variant_t more[2];
  EXPECT_EQ(points->Next(2, more, &read), S_FALSE);
  EXPECT_EQ(read, 1U);
  EXPECT_EQ(text(get(object(more[0]), L"Name")), L"C");
  EXPECT_EQ(more[1].vt, VT_EMPTY);
  _variant_t last;
  EXPECT_EQ(copy->Next(1, &last, nullptr), S_OK) << "a copy goes on from the same place";
  EXPECT_EQ(copy->Next(1, &more[1], nullptr), S_FALSE);
  EXPECT_EQ(points->Reset(), S_OK);
  EXPECT_EQ(points->Skip(2), S_OK);
  EXPECT_EQ(points->Skip(2), S_FALSE);
}

TEST_F(Lifetime, APartOfARequestKeepsItsRequest) {
  Object header = object(get(create("AreaBriefingRqs"), L"abstractReq"));
  EXPECT_EQ(canUnload(), S_FALSE);
  EXPECT_EQ(text(get(header, L"ElementName")), L"area-brief-rqs");
  ComPtr<IUnknown> identity;
  ComPtr<IUnknown> other;
  ComPtr<IAppendable> part;
  ASSERT_EQ(header.As(&part), S_OK);
  ASSERT_EQ(header.As(&identity), S_OK);
  ASSERT_EQ(part.As(&other), S_OK);
  EXPECT_EQ(identity, other) << "one object, whichever interface is asked";
}

TEST_F(Lifetime, PartsLiveInWhatHoldsThem) {
  const Object request = create("SubmitICAOFlightNotifRqs");
  {
    const Object stage = create("ICAOFlightNotifStage");
    set(stage, L"Route", create("ICAORoute").Get());
    put(stage, L"Aircraft", L"VHABC");
    call(object(get(request, L"Notification")), L"Add", {_variant_t(stage.Get())});
  }
  EXPECT_NE(written(request).find(L"<ndd:acid>VHABC</ndd:acid>"), std::wstring::npos);
}

TEST_F(Lifetime, AnObjectThatHoldsItselfThroughAnotherIsLetGoWithIt) {
  const Object stage = create("SPFIBStageSpec");
  const Object route = create("SPFIBRoute");
  set(stage, L"Route", route.Get());
  set(stage, L"AltRoute", route.Get());
  set(stage, L"AltRoute", nullptr);
  EXPECT_EQ(object(get(stage, L"Route")), route);
}

TEST_F(Lifetime, NodesOfAnAnswerOutliveTheirResponse) {
  Object response = create("AuthenticateRsp");
  set(response, L"ResponseDoc", answer(L"<n:name>Dana</n:name>").Get());
  const Object payload = object(get(response, L"Payload"));
  response.Reset();
  EXPECT_EQ(canUnload(), S_OK) << "nodes are the platform's";
  EXPECT_EQ(text(get(payload, L"text")), L"Dana");
}

TEST_F(Lifetime, EntriesAndImagesOutliveTheirResponse) {
  Object response = create("BriefingResponse");
  set(response, L"ResponseDoc", answer(L"<n:product type='PNG'/><n:product/>").Get());
  Object images = object(get(response, L"Images"));
  const Object item = object(get(response, L"Item", {static_cast<short>(1)}));
  EXPECT_EQ(item, object(get(response, L"Item", {static_cast<short>(1)})));
  response.Reset();
  EXPECT_EQ(get(images, L"Count").lVal & 0xFFFF, 2);
  const ComPtr<IEnumVARIANT> walk = enumerator(images);
  images.Reset();
  _variant_t first;
  EXPECT_EQ(walk->Next(1, &first, nullptr), S_OK);
  EXPECT_EQ(object(first), item);
  EXPECT_EQ(text(get(item, L"ProductType")), L"PNG");
}

TEST_F(Lifetime, AFailedCallLeavesNothingBehind) {
  const Object route = routeOf({L"A"});
  for (const wchar_t* key : {L"x", L"y"}) {
    const auto outcome = invoke(route.Get(), L"Item", DISPATCH_PROPERTYGET, {key});
    EXPECT_EQ(outcome.code, static_cast<HRESULT>(0x800A0005));
    EXPECT_EQ(outcome.text, L"Invalid procedure call or argument");
    EXPECT_FALSE(object(outcome.value));
  }
}

TEST_F(Lifetime, EachThreadHasItsOwnConfiguration) {
  const Object config = create("NAIPSConfig");
  put(config, L"Mode", 2L);
  LONG elsewhere = -1;
  std::thread([&elsewhere] {
    check(CoInitialize(nullptr), "CoInitialize");
    elsewhere = get(create("NAIPSConfig"), L"Mode").lVal;
    CoUninitialize();
  }).join();
  EXPECT_EQ(elsewhere, 0);
  EXPECT_EQ(get(config, L"Mode").lVal, 2);
  put(config, L"Mode", 0L);
}

TEST(TemporaryFiles, OfChartsGoWithTheModule) {
  check(CoInitialize(nullptr), "CoInitialize");
  {
    const SideBySide side;
    Object response;
    check(
        CoCreateInstance(CLSID_GetChartRsp, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&response)),
        "CoCreateInstance");
    set(response, L"ResponseDoc",
        answer(L"<n:desc key='k'/><n:content type='PNG'><n:content>QUJD</n:content></n:content>")
            .Get());
    Object product = object(get(response, L"Item", {static_cast<short>(1)}));
    const std::filesystem::path file = text(get(product, L"FilePath"));
    EXPECT_EQ(std::filesystem::file_size(file), 3U);
    response.Reset();
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_TRUE(std::filesystem::exists(file)) << "the module is still in use";
    product.Reset();
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_FALSE(side.isLoaded());
    EXPECT_FALSE(std::filesystem::exists(file));
  }
  CoUninitialize();
}

}  // namespace
