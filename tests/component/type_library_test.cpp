#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "tests/component/component.h"
#include "tests/component/member_table.h"
#include "tests/component/type_members.h"

using Microsoft::WRL::ComPtr;
using namespace members;

namespace {

const Type& entry(const std::string& name) {
  return *find(table(), name);
}

/// The interface by which hosts use a type of the table.
TypeInfo mainInterface(const std::string& name) {
  const TypeInfo info = component::type(entry(name).isInterface ? name : '_' + name);
  if (!info) throw std::runtime_error("the type library has no interface of " + name);
  if (attributesOf(info.Get()).kind != TKIND_DISPATCH) return info;
  HREFTYPE reference = 0;
  TypeInfo table;
  check(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), "GetRefTypeOfImplType");
  check(info->GetRefTypeInfo(reference, &table), "GetRefTypeInfo");
  return table;
}

std::vector<std::string> lines(const std::vector<Function>& functions) {
  std::vector<std::string> result;
  for (const Function& function : functions) result.push_back(describe(function));
  return result;
}

std::vector<std::string> sorted(std::vector<std::string> texts) {
  std::ranges::sort(texts);
  return texts;
}

/// The functions of a type in its library, with the kind read where the table is content with it.
std::vector<Function> actualFunctions(const Type& expected) {
  std::vector<Function> functions = functionsOf(mainInterface(expected.name).Get(), table());
  for (Function& function : functions) {
    const auto same = std::ranges::find(expected.functions, function.name, &Function::name);
    if (same == expected.functions.end()) continue;
    function.anywhere = same->anywhere;
    if (same->kind == "read" && (function.kind == "get" || function.kind == "method"))
      function.kind = "read";
  }
  return functions;
}

std::vector<Function> placed(std::vector<Function> functions) {
  std::erase_if(functions, [](const Function& function) { return function.anywhere; });
  return functions;
}

/// The names of the types that a class names besides its default one, and of their bases.
std::set<std::string> interfacesOf(ITypeInfo* coclass) {
  std::set<std::string> result;
  for (UINT index = 0; index < attributesOf(coclass).implemented; ++index) {
    for (TypeInfo info = implementedInterface(coclass, index); info;) {
      const std::string name = nameOf(info.Get());
      if (name == "IDispatch" || name == "IUnknown") break;
      result.insert(name);
      info =
          attributesOf(info.Get()).implemented == 0 ? nullptr : implementedInterface(info.Get(), 0);
    }
  }
  return result;
}

class TypeLibrary : public component::Test {};

TEST_F(TypeLibrary, IsBrevankOne) {
  const ComPtr<ITypeLib> library = component::typeLibrary();
  BSTR name = nullptr;
  BSTR help = nullptr;
  check(library->GetDocumentation(-1, &name, &help, nullptr, nullptr), "GetDocumentation");
  EXPECT_EQ(narrow(name), "Brevank");
  EXPECT_NE(narrow(help), "");
  SysFreeString(name);
  SysFreeString(help);
  TLIBATTR* attributes = nullptr;
  check(library->GetLibAttr(&attributes), "GetLibAttr");
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  EXPECT_EQ(attributes->lcid, 0U) << "neutral";
  library->ReleaseTLibAttr(attributes);
}

TEST_F(TypeLibrary, OffersTheClassesOfTheTableAndNoOthers) {
  const ComPtr<ITypeLib> library = component::typeLibrary();
  std::vector<std::string> classes;
  std::vector<std::string> visibleInterfaces;
  for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
    ComPtr<ITypeInfo> info;
    check(library->GetTypeInfo(index, &info), "GetTypeInfo");
    const Attributes attributes = attributesOf(info.Get());
    const bool visible = (attributes.flags & TYPEFLAG_FHIDDEN) == 0;
    const std::string name = nameOf(info.Get());
    if (attributes.kind == TKIND_COCLASS) {
      EXPECT_NE(attributes.flags & TYPEFLAG_FCANCREATE, 0) << name;
      EXPECT_TRUE(visible) << name;
      classes.push_back(name);
    } else if (visible) {
      visibleInterfaces.push_back(name);
    }
  }
  EXPECT_EQ(sorted(classes), sorted(names(false)));
  EXPECT_EQ(sorted(visibleInterfaces), sorted(names(true)));
}

class EachType : public TypeLibrary, public testing::WithParamInterface<std::string> {};
class EachClass : public TypeLibrary, public testing::WithParamInterface<std::string> {};

constexpr auto byName = [](const auto& each) { return each.param; };
INSTANTIATE_TEST_SUITE_P(Classes, EachType, testing::ValuesIn(names(false)), byName);
INSTANTIATE_TEST_SUITE_P(Interfaces, EachType, testing::ValuesIn(names(true)), byName);
INSTANTIATE_TEST_SUITE_P(Classes, EachClass, testing::ValuesIn(names(false)), byName);

TEST_P(EachType, HasTheMembersOfTheTable) {
  const Type& expected = entry(GetParam());
  EXPECT_EQ(sorted(lines(actualFunctions(expected))), sorted(lines(expected.functions)));
}

TEST_P(EachType, HasItsMembersInTheOrderOfTheTable) {
  const Type& expected = entry(GetParam());
  EXPECT_EQ(lines(placed(actualFunctions(expected))), lines(placed(expected.functions)));
}

TEST_P(EachType, IsDualForAutomationAndHasHelp) {
  const TypeInfo info =
      component::type(entry(GetParam()).isInterface ? GetParam() : '_' + GetParam());
  ASSERT_TRUE(info);
  EXPECT_TRUE(attributesOf(info.Get()).isDual);
  const TypeInfo functions = mainInterface(GetParam());
  EXPECT_NE(attributesOf(functions.Get()).flags & TYPEFLAG_FOLEAUTOMATION, 0);
  std::set<MEMBERID> ids;
  std::set<std::string> named;
  for (UINT index = 0; index < attributesOf(functions.Get()).functions; ++index) {
    FUNCDESC* function = nullptr;
    check(functions->GetFuncDesc(index, &function), "GetFuncDesc");
    BSTR name = nullptr;
    BSTR help = nullptr;
    check(functions->GetDocumentation(function->memid, &name, &help, nullptr, nullptr),
          "GetDocumentation");
    EXPECT_NE(narrow(help), "") << narrow(name);
    ids.insert(function->memid);
    named.insert(narrow(name));
    SysFreeString(name);
    SysFreeString(help);
    functions->ReleaseFuncDesc(function);
  }
  EXPECT_EQ(ids.size(), named.size()) << "one id a member";
}

TEST_P(EachClass, NamesItsInterfaces) {
  const ComPtr<ITypeInfo> coclass = component::type(GetParam());
  ASSERT_TRUE(coclass);
  EXPECT_EQ(nameOf(implementedInterface(coclass.Get(), 0).Get()), '_' + GetParam());
  int flags = 0;
  check(coclass->GetImplTypeFlags(0, &flags), "GetImplTypeFlags");
  EXPECT_NE(flags & IMPLTYPEFLAG_FDEFAULT, 0);
  const std::set<std::string> named = interfacesOf(coclass.Get());
  for (const std::string& name : entry(GetParam()).interfaces)
    EXPECT_TRUE(named.contains(name)) << name;
}

TEST_P(EachClass, AnswersForItsInterfacesAndOnlyThem) {
  const component::Object object = component::create(GetParam());
  std::set<std::string> expected(entry(GetParam()).interfaces.begin(),
                                 entry(GetParam()).interfaces.end());
  if (expected.contains("Point")) expected.insert("IAppendable");
  for (const std::string& name : names(true)) {
    const ComPtr<ITypeInfo> info = component::type(name);
    component::Unknown unknown;
    const HRESULT found = object->QueryInterface(attributesOf(info.Get()).id, &unknown);
    EXPECT_EQ(found, expected.contains(name) ? S_OK : E_NOINTERFACE) << name;
  }
}

TEST_P(EachClass, SupportsErrorInformation) {
  const component::Object object = component::create(GetParam());
  ComPtr<ISupportErrorInfo> support;
  ASSERT_EQ(object.As(&support), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(attributesOf(mainInterface(GetParam()).Get()).id),
            S_OK);
}

TEST_P(EachClass, ReportsItsTypeFromTheLibraryOfTheFile) {
  const component::Object object = component::create(GetParam());
  UINT count = 0;
  EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info), S_OK);
  EXPECT_EQ(nameOf(info.Get()), '_' + GetParam());
  EXPECT_EQ(object->GetTypeInfo(1, LOCALE_USER_DEFAULT, &info), DISP_E_BADINDEX);
}

}  // namespace
