#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iomanip>
#include <sstream>
#include <string>

#include "tests/component/component.h"
#include "tests/component/member_table.h"
#include "tests/component/type_members.h"

using namespace members;

namespace {

std::string dateText(DATE date) {
  SYSTEMTIME time{};
  VariantTimeToSystemTime(date, &time);
  std::ostringstream text;
  text << std::setfill('0') << std::setw(4) << time.wYear << '-' << std::setw(2) << time.wMonth
       << '-' << std::setw(2) << time.wDay << 'T' << std::setw(2) << time.wHour << ':'
       << std::setw(2) << time.wMinute << ':' << std::setw(2) << time.wSecond;
  return text.str();
}

bool isNow(DATE date) {
  SYSTEMTIME time{};
  GetLocalTime(&time);
  DATE now = 0;
  SystemTimeToVariantTime(&time, &now);
  constexpr double minutes = 2.0 / (24 * 60);
  return std::abs(now - date) < minutes;
}

/// A value with its type, as the table would write it.
std::string literal(const _variant_t& value) {
  switch (value.vt) {
    case VT_BSTR:
      return '"' + narrow(value.bstrVal) + '"';
    case VT_BOOL:
      return value.boolVal == VARIANT_FALSE  ? "false"
             : value.boolVal == VARIANT_TRUE ? "true"
                                             : "?";
    case VT_I2:
      return std::to_string(value.iVal);
    case VT_I4:
      return std::to_string(value.lVal);
    case VT_R8: {
      std::ostringstream text;
      text << value.dblVal;
      return text.str();
    }
    case VT_DATE:
      return isNow(value.date) ? "now" : dateText(value.date);
    case VT_DISPATCH:
      return value.pdispVal == nullptr ? "nothing" : "new";
    default:
      return "type " + std::to_string(value.vt);
  }
}

std::wstring wide(const std::string& text) {
  return {text.begin(), text.end()};
}

/// The values that "new[NAME=VALUE,...]" gives for the object's own properties.
void expectProperties(const component::Object& object, const std::string& initial) {
  std::istringstream text(initial.substr(4, initial.size() - 5));
  for (std::string pair; std::getline(text, pair, ',');) {
    const auto equals = pair.find('=');
    const std::string name = pair.substr(0, equals);
    EXPECT_EQ(literal(component::get(object, wide(name))), pair.substr(equals + 1)) << name;
  }
}

class Defaults : public component::Test, public testing::WithParamInterface<std::string> {};

INSTANTIATE_TEST_SUITE_P(Classes, Defaults, testing::ValuesIn(names(false)),
                         [](const auto& each) { return each.param; });

TEST_P(Defaults, AreThoseOfTheTable) {
  const component::Object object = component::create(GetParam());
  for (const Function& function : find(table(), GetParam())->functions) {
    if (function.initial.empty()) continue;
    SCOPED_TRACE(function.name);
    const _variant_t value = component::get(object, wide(function.name));
    if (function.initial.starts_with("new[")) {
      EXPECT_EQ(literal(value), "new");
      if (literal(value) == "new") expectProperties(component::object(value), function.initial);
    } else {
      EXPECT_EQ(literal(value), function.initial);
    }
  }
}

TEST_P(Defaults, ComeInTheTypesOfTheTable) {
  constexpr std::array types{std::pair{"text", VT_BSTR}, std::pair{"bool", VT_BOOL},
                             std::pair{"short", VT_I2},  std::pair{"long", VT_I4},
                             std::pair{"double", VT_R8}, std::pair{"date", VT_DATE}};
  const component::Object object = component::create(GetParam());
  for (const Function& function : find(table(), GetParam())->functions) {
    if (function.initial.empty()) continue;
    VARTYPE expected = VT_DISPATCH;
    for (const auto& [name, type] : types)
      if (function.type == name) expected = static_cast<VARTYPE>(type);
    EXPECT_EQ(component::get(object, wide(function.name)).vt, expected) << function.name;
  }
}

TEST_P(Defaults, OfPartsStayTheSameObject) {
  const component::Object object = component::create(GetParam());
  for (const Function& function : find(table(), GetParam())->functions) {
    if (!function.initial.starts_with("new[") || function.type == "object") continue;
    const auto first = component::object(component::get(object, wide(function.name)));
    EXPECT_EQ(first, component::object(component::get(object, wide(function.name))))
        << function.name;
  }
}

TEST_P(Defaults, ArePutBackUnchanged) {
  const component::Object object = component::create(GetParam());
  const Type& type = *find(table(), GetParam());
  for (const Function& function : type.functions) {
    if (function.kind != "put" || function.type == "object") continue;
    const _variant_t value = component::get(object, wide(function.name));
    component::put(object, wide(function.name), value);
    // The one setter that makes something of an empty text.
    const bool isDirect = type.name == "WindTempStage" && function.name == "Route";
    EXPECT_EQ(literal(component::get(object, wide(function.name))),
              isDirect ? "\"DCT\"" : literal(value))
        << function.name;
  }
}

TEST_P(Defaults, OfWhatIsReadOnlyCannotBePut) {
  const component::Object object = component::create(GetParam());
  const Type& type = *find(table(), GetParam());
  for (const Function& function : type.functions) {
    const bool written = std::ranges::any_of(type.functions, [&](const Function& other) {
      return other.name == function.name && other.kind != "get";
    });
    if (function.initial.empty() || written) continue;
    const auto outcome = component::invoke(object.Get(), wide(function.name), DISPATCH_PROPERTYPUT,
                                           {component::get(object, wide(function.name))});
    EXPECT_EQ(outcome.code, DISP_E_MEMBERNOTFOUND) << function.name;
  }
}

}  // namespace
