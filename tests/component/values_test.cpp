#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "tests/component/component.h"
#include "tests/component/type_members.h"

using namespace component;
using members::check;

namespace {

/// How values pass between automation and the library.
class Values : public component::Test {};

constexpr HRESULT fault(int number) {
  return static_cast<HRESULT>(0x800A0000U | static_cast<unsigned>(number));
}

_variant_t date(double value) {
  _variant_t result(value);
  result.vt = VT_DATE;
  return result;
}

TEST_F(Values, TextsOfAnyCharactersPassWhole) {
  const Object config = create("NAIPSConfig");
  const std::wstring nulInside(L"a\0b", 3);
  const std::wstring texts[] = {L"",
                                L" ",
                                L"Z\u00FCrich \u2013 \u6771\u4EAC",
                                L"\xD83D\xDEE9",
                                L"line\r\nend\t",
                                nulInside,
                                std::wstring(100'000, L'x')};
  for (const std::wstring& each : texts) {
    const _bstr_t value(SysAllocStringLen(each.data(), static_cast<UINT>(each.size())), false);
    put(config, L"Password", _variant_t(value));
    EXPECT_EQ(text(get(config, L"Password")), each);
  }
  put(config, L"Password", L"");
}

TEST_F(Values, UpperCaseIsThatOfEveryAlphabet) {
  const Object point = create("NamedPoint");
  put(point, L"Name", L" z\u00FCrich ");
  EXPECT_EQ(text(get(point, L"Name")), L"Z\u00DCRICH");
}

TEST_F(Values, EverySecondOfADayPassesUnchanged) {
  const Object stage = create("WindTempStage");
  constexpr int secondsOfADay = 86'400;
  constexpr double day = 46'342;  // 2026-11-16
  int wrong = 0;
  for (int second = 0; second < secondsOfADay; ++second) {
    put(stage, L"ETD", date(day + static_cast<double>(second) / secondsOfADay));
    const double read = get(stage, L"ETD").date;
    if (std::lround((read - day) * secondsOfADay) != second) ++wrong;
  }
  EXPECT_EQ(wrong, 0);
}

TEST_F(Values, DatesBeforeAutomationsOwnCountTheirTimeForwards) {
  const Object stage = create("WindTempStage");
  struct Case {
    double value;
    const wchar_t* text;
  };
  constexpr Case cases[] = {
      {0.0, L"1899-12-30T00:00:00Z"},
      {0.75, L"1899-12-30T18:00:00Z"},
      {-1.0, L"1899-12-29T00:00:00Z"},
      {-1.75, L"1899-12-29T18:00:00Z"},
      {-657'434.0, L"0100-01-01T00:00:00Z"},
      {2'958'465.0, L"9999-12-31T00:00:00Z"},
      {25'569.0, L"1970-01-01T00:00:00Z"},
      {45'351.0, L"2024-02-29T00:00:00Z"},
      {46'342.0 + 8'580.0 / 86'400, L"2026-11-16T02:23:00Z"},
  };
  for (const Case& each : cases) {
    put(stage, L"ETD", date(each.value));
    EXPECT_NE(written(stage).find(each.text), std::wstring::npos) << each.value;
    EXPECT_NEAR(get(stage, L"ETD").date, each.value, 1e-6);
  }
}

TEST_F(Values, WhatIsNoDateIsRefused) {
  const Object stage = create("WindTempStage");
  put(stage, L"ETD", date(46'342));
  for (const double value :
       {-657'435.0, 2'958'466.0, 1e300, std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_TRUE(FAILED(invoke(stage.Get(), L"ETD", DISPATCH_PROPERTYPUT, {date(value)}).code))
        << value;
    EXPECT_EQ(get(stage, L"ETD").date, 46'342) << value;
  }
}

TEST_F(Values, ADateThatAutomationCannotTellIsTheZeroDate) {
  const auto dateRead = [](const std::wstring& text) {
    const Object list = create("ActiveSPFIBDirectoryRsp");
    set(list, L"ResponseDoc", answer(L"<n:spfib><n:dtg>" + text + L"</n:dtg></n:spfib>").Get());
    const auto outcome =
        invoke(object(get(list, L"Item", {1})).Get(), L"DTG", DISPATCH_PROPERTYGET);
    EXPECT_EQ(outcome.code, S_OK) << text.c_str();
    EXPECT_EQ(outcome.value.vt, VT_DATE) << text.c_str();
    return outcome.value.date;
  };
  EXPECT_EQ(dateRead(L"0100-01-01T00:00:00Z"), -657'434.0);
  EXPECT_EQ(dateRead(L"9999-12-31T00:00:00Z"), 2'958'465.0);
  EXPECT_NEAR(dateRead(L"9999-12-31T23:59:59Z"), 2'958'466.0, 2e-5);
  for (const wchar_t* text : {L"0099-12-31T23:59:59Z", L"0000-00-00T00:00:00Z",
                              L"9999-12-31T24:00:00Z", L"9999-99-99T99:99:99Z"}) {
    EXPECT_EQ(dateRead(text), 0.0) << text;
  }
}

TEST_F(Values, FloatingNumbersPassWithEveryBit) {
  const Object point = create("CoordinatePoint");
  for (const double value : {0.1, -0.0, 1e300, std::numeric_limits<double>::denorm_min()}) {
    put(point, L"Lat", value);
    const double read = get(point, L"Lat").dblVal;
    EXPECT_EQ(read, value);
    EXPECT_EQ(std::signbit(read), std::signbit(value));
  }
}

TEST_F(Values, AnIndexOrKeyMayComeInAnyKindOfVariant) {
  const Object route = create("SPFIBRoute");
  const Object point = create("NamedPoint");
  call(route, L"Add", {_variant_t(create("NamedPoint").Get())});
  call(route, L"Add", {_variant_t(point.Get()), L"key"});
  _variant_t number(2L);
  _variant_t key(L"KEY");
  VARIANT toVariant{};
  toVariant.vt = VT_BYREF | VT_VARIANT;
  toVariant.pvarVal = &number;
  VARIANT toKey{};
  toKey.vt = VT_BYREF | VT_VARIANT;
  toKey.pvarVal = &key;
  VARIANT toText{};
  toText.vt = VT_BYREF | VT_BSTR;
  toText.pbstrVal = &key.bstrVal;
  VARIANT toShort{};
  short two = 2;
  toShort.vt = VT_BYREF | VT_I2;
  toShort.piVal = &two;
  const VARIANT indexes[] = {number,
                             key,
                             toVariant,
                             toKey,
                             toText,
                             toShort,
                             _variant_t(static_cast<short>(2)),
                             _variant_t(2.0),
                             _variant_t(static_cast<BYTE>(2))};
  for (const VARIANT& index : indexes) {
    const auto outcome = invoke(route.Get(), L"Item", DISPATCH_PROPERTYGET, {_variant_t(index)});
    EXPECT_EQ(outcome.code, S_OK) << index.vt;
    EXPECT_EQ(object(outcome.value), point) << index.vt;
  }
}

TEST_F(Values, AnOptionalKeyMayBeLeftOut) {
  const Object route = create("SPFIBRoute");
  const Object point = create("NamedPoint");
  _variant_t missing;
  missing.vt = VT_ERROR;
  missing.scode = DISP_E_PARAMNOTFOUND;
  call(route, L"Add", {_variant_t(point.Get()), missing});
  call(route, L"Add", {_variant_t(point.Get())});
  EXPECT_EQ(get(route, L"Count").lVal, 2);
}

TEST_F(Values, BooleansAreTrueForAnyNumberButZero) {
  const Object config = create("NAIPSConfig");
  for (const long number : {1L, -1L, 256L}) {
    put(config, L"UseProxy", false);
    put(config, L"UseProxy", number);
    EXPECT_EQ(get(config, L"UseProxy").boolVal, VARIANT_TRUE) << number;
  }
  put(config, L"UseProxy", 0L);
  EXPECT_EQ(get(config, L"UseProxy").boolVal, VARIANT_FALSE);
}

TEST_F(Values, NamesAreThoseOfTheLibraryAndNoOthers) {
  const Object point = create("NamedPoint");
  const auto idOf = [&](std::wstring name) {
    LPOLESTR names = name.data();
    DISPID id = 0;
    const HRESULT result = point->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    return std::pair{result, id};
  };
  const auto name = idOf(L"Name");
  EXPECT_EQ(name.first, S_OK);
  EXPECT_EQ(idOf(L"NAME"), name);
  EXPECT_EQ(idOf(L"Nam"), std::pair(DISP_E_UNKNOWNNAME, DISPID{DISPID_UNKNOWN}));
  EXPECT_EQ(idOf(L"").first, DISP_E_UNKNOWNNAME);
  EXPECT_EQ(idOf(L"Lat").first, DISP_E_UNKNOWNNAME);
}

TEST_F(Values, UnknownMembersAreRefusedById) {
  const Object point = create("NamedPoint");
  DISPPARAMS none{};
  EXPECT_EQ(point->Invoke(4711, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr,
                          nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(point->Invoke(1, IID_IUnknown, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                          nullptr, nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
}

TEST_F(Values, AFaultIsARaisedExceptionWithItsText) {
  const Object route = create("SPFIBRoute");
  const auto outcome = invoke(route.Get(), L"Remove", DISPATCH_METHOD, {_variant_t(1L)});
  EXPECT_EQ(outcome.code, fault(9));
  EXPECT_EQ(outcome.text, L"Subscript out of range");
}

TEST_F(Values, ASuccessLeavesNoOldError) {
  const Object route = create("SPFIBRoute");
  invoke(route.Get(), L"Remove", DISPATCH_METHOD, {_variant_t(1L)});
  EXPECT_EQ(invoke(route.Get(), L"Count", DISPATCH_PROPERTYGET).code, S_OK);
  EXPECT_EQ(invoke(route.Get(), L"Clear", DISPATCH_METHOD).code, S_OK);
}

}  // namespace
