#include <brevank.h>
#include <comutil.h>
#include <gtest/gtest.h>
#include <wrl/client.h>

#include <string>

#include "tests/component/component.h"
#include "tests/component/side_by_side.h"
#include "tests/component/type_members.h"

using members::check;
using Microsoft::WRL::ComPtr;

namespace {

template <class Interface>
ComPtr<Interface> created(REFCLSID id) {
  ComPtr<Interface> object;
  check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)),
        "CoCreateInstance");
  return object;
}

_bstr_t textOf(HRESULT result, BSTR text) {
  check(result, "a property");
  return {text, false};
}

/// A host that knows the interfaces when it is compiled, with the component beside it.
class EarlyBound : public testing::Test {
 protected:
  void SetUp() override { check(CoInitialize(nullptr), "CoInitialize"); }

  void TearDown() override {
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_FALSE(side_.isLoaded()) << "an object of the component is left";
    CoUninitialize();
  }

  SideBySide side_;
};

TEST_F(EarlyBound, LoadsTheComponentThroughItsManifestAndLetsItGo) {
  EXPECT_FALSE(side_.isLoaded());
  ComPtr<_NAIPSConfig> config = created<_NAIPSConfig>(CLSID_NAIPSConfig);
  EXPECT_TRUE(side_.isLoaded());
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_TRUE(side_.isLoaded()) << "it is in use";
  config.Reset();
  CoFreeUnusedLibrariesEx(0, 0);
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_FALSE(side_.isLoaded());
}

TEST_F(EarlyBound, FindsAClassByItsNameThroughTheManifest) {
  for (const wchar_t* name : {L"Brevank.NAIPSConfig", L"Brevank.NAIPSConfig.1"}) {
    CLSID id{};
    ASSERT_EQ(CLSIDFromProgID(name, &id), S_OK) << members::narrow(name);
    const auto config = created<_NAIPSConfig>(id);
    EXPECT_TRUE(side_.isLoaded());
    LONG mode = -1;
    EXPECT_EQ(config->get_Mode(&mode), S_OK);
    EXPECT_EQ(mode, 0);
  }
}

TEST_F(EarlyBound, ForgetsTheConfigurationOnceItIsUnloaded) {
  ComPtr<_NAIPSConfig> config = created<_NAIPSConfig>(CLSID_NAIPSConfig);
  EXPECT_EQ(config->put_Mode(2), S_OK);
  config.Reset();
  CoFreeUnusedLibrariesEx(0, 0);
  CoFreeUnusedLibrariesEx(0, 0);
  config = created<_NAIPSConfig>(CLSID_NAIPSConfig);
  LONG mode = -1;
  EXPECT_EQ(config->get_Mode(&mode), S_OK);
  EXPECT_EQ(mode, 0);
}

TEST_F(EarlyBound, SetsAndReadsProperties) {
  const auto config = created<_NAIPSConfig>(CLSID_NAIPSConfig);
  EXPECT_EQ(config->put_UserName(_bstr_t(L" pilot1 ")), S_OK);
  BSTR text = nullptr;
  HRESULT result = config->get_UserName(&text);
  EXPECT_STREQ(textOf(result, text), L"PILOT1");
  EXPECT_EQ(config->put_UserName(nullptr), S_OK) << "no text is the empty one";
  result = config->get_UserName(&text);
  EXPECT_EQ(SysStringLen(text), 0U);
  EXPECT_EQ(textOf(result, text).length(), 0U);
  EXPECT_EQ(config->put_UseProxy(1), S_OK) << "anything but zero is true";
  VARIANT_BOOL on = VARIANT_FALSE;
  EXPECT_EQ(config->get_UseProxy(&on), S_OK);
  EXPECT_EQ(on, VARIANT_TRUE);
}

TEST_F(EarlyBound, RefusesToWriteWhereThereIsNoPlace) {
  const auto config = created<_NAIPSConfig>(CLSID_NAIPSConfig);
  EXPECT_EQ(config->get_Mode(nullptr), E_POINTER);
  EXPECT_EQ(config->get_UserName(nullptr), E_POINTER);
  EXPECT_EQ(created<_AuthenticateRqs>(CLSID_AuthenticateRqs)->get_abstractReq(nullptr), E_POINTER);
}

TEST_F(EarlyBound, PartsAreTheSameObjectAndKeepTheirRequest) {
  auto request = created<_AreaBriefingRqs>(CLSID_AreaBriefingRqs);
  ComPtr<_BriefingRequest> period;
  ComPtr<_BriefingRequest> again;
  EXPECT_EQ(request->get_briefingReq(&period), S_OK);
  EXPECT_EQ(request->get_briefingReq(&again), S_OK);
  EXPECT_EQ(period, again);
  again.Reset();
  request.Reset();
  EXPECT_EQ(period->put_Duration(6), S_OK);
  short hours = 0;
  EXPECT_EQ(period->get_Duration(&hours), S_OK);
  EXPECT_EQ(hours, 6);
}

TEST_F(EarlyBound, BuildsAFlightPlan) {
  const auto route = created<_ICAORoute>(CLSID_ICAORoute);
  const auto segment = created<_ICAORouteSegment>(CLSID_ICAORouteSegment);
  EXPECT_EQ(segment->setBearingDistance(_bstr_t(L"sy"), 45, 25), S_OK);
  EXPECT_EQ(route->Add(segment.Get()), S_OK);
  EXPECT_EQ(route->Add(nullptr), S_OK);
  const auto stage = created<_ICAOFlightNotifStage>(CLSID_ICAOFlightNotifStage);
  EXPECT_EQ(stage->putref_Route(route.Get()), S_OK);
  const auto plan = created<_ICAOFlightNotif>(CLSID_ICAOFlightNotif);
  EXPECT_EQ(plan->Add(stage.Get()), S_OK);
  ComPtr<IAppendable> part;
  ASSERT_EQ(plan.As(&part), S_OK);
  const component::Object element = component::newElement();
  EXPECT_EQ(part->appendTo(element.Get(), _bstr_t(L"urn:x")), S_OK);
  const std::wstring text = component::content(element);
  EXPECT_NE(text.find(L"<ndd:bear-dist><ndd:loc>SY</ndd:loc><ndd:bear>45</ndd:bear>"),
            std::wstring::npos);
}

TEST_F(EarlyBound, FaultsCarryTheirNumberAndTextAndClearTheResult) {
  const auto route = created<_SPFIBRoute>(CLSID_SPFIBRoute);
  ComPtr<IErrorInfo> before;
  GetErrorInfo(0, &before);
  ComPtr<Point> held = created<Point>(CLSID_NamedPoint);
  Point* result = held.Get();
  constexpr HRESULT subscriptOutOfRange = static_cast<HRESULT>(0x800A0009);
  EXPECT_EQ(route->get_Item(_variant_t(1L), &result), subscriptOutOfRange);
  EXPECT_EQ(result, nullptr);
  ComPtr<IErrorInfo> information;
  ASSERT_EQ(GetErrorInfo(0, &information), S_OK);
  BSTR text = nullptr;
  HRESULT read = information->GetDescription(&text);
  EXPECT_STREQ(textOf(read, text), L"Subscript out of range");
  read = information->GetSource(&text);
  EXPECT_NE(textOf(read, text).length(), 0U);
}

TEST_F(EarlyBound, AnswersAreReadThroughTheirCommonInterface) {
  const auto request = created<_GetRouteRqs>(CLSID_GetRouteRqs);
  const auto config = created<_NAIPSConfig>(CLSID_NAIPSConfig);
  EXPECT_EQ(config->put_Mode(2), S_OK) << "a host that there is not";
  ComPtr<AbstractResponse> response;
  ASSERT_EQ(request->submit(&response), S_OK);
  VARIANT_BOOL error = VARIANT_FALSE;
  EXPECT_EQ(response->get_Error(&error), S_OK);
  EXPECT_EQ(error, VARIANT_TRUE);
  BSTR text = nullptr;
  const HRESULT result = response->get_ErrorText(&text);
  EXPECT_EQ(std::wstring(textOf(result, text)).find(L"SOAP Fault: Unrecognised response."), 0U);
}

}  // namespace
