#pragma once

#include <comutil.h>
#include <gtest/gtest.h>
#include <oaidl.h>
#include <wrl/client.h>

#include <initializer_list>
#include <string>
#include <string_view>

/// The component, which stands beside the test program, and its objects as late-bound hosts use
/// them. Registration plays no part.
namespace component {

using Object = Microsoft::WRL::ComPtr<IDispatch>;
using Unknown = Microsoft::WRL::ComPtr<IUnknown>;

/// Where the component's file is.
std::wstring path();

/// Its type library, read from its file.
Microsoft::WRL::ComPtr<ITypeLib> typeLibrary();

/// The type of that name in its library; empty when there is none.
Microsoft::WRL::ComPtr<ITypeInfo> type(std::string_view name);

/// What DllGetClassObject answers.
HRESULT classObject(REFCLSID id, REFIID interfaceId, void** result);
/// The class factory of a class, by its name. Throws when there is none.
Microsoft::WRL::ComPtr<IClassFactory> factory(std::string_view className);
/// A new object of a class, by its name. Throws when it cannot be created.
Object create(std::string_view className);

/// What a call of a member gives back.
struct Outcome {
  HRESULT code;       ///< as scripts see it: of the exception information, if there is some
  std::wstring text;  ///< its description
  _variant_t value;
};

/// Calls a member with IDispatch alone; `flags` as for IDispatch::Invoke. Arguments stand in order.
Outcome invoke(IDispatch* object, std::wstring_view member, WORD flags,
               std::initializer_list<_variant_t> arguments = {});

/// As above, but throws when the call fails.
_variant_t get(const Object& object, std::wstring_view member,
               std::initializer_list<_variant_t> arguments = {});
void put(const Object& object, std::wstring_view member, const _variant_t& value);
void set(const Object& object, std::wstring_view member, IDispatch* value);
_variant_t call(const Object& object, std::wstring_view member,
                std::initializer_list<_variant_t> arguments = {});

/// An object in a variant; empty for none.
Object object(const _variant_t& value);
std::wstring text(const _variant_t& value);

/// The DOM's element "root" of a new document of MSXML.
Object newElement();
/// A document of MSXML with this text.
Object document(const std::wstring& text);
/// An answer of the service that succeeded, with these children in the namespace of prefix "n".
Object answer(const std::wstring& children);
/// An element in one line, without the declarations of "urn:x": engines differ in both.
std::wstring content(const Object& element);
/// What a part writes under the element "root".
std::wstring written(const Object& part);

/// COM on the test's thread. After each test no object of the component is left.
class Test : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
};

/// What DllCanUnloadNow says.
HRESULT canUnload();

}  // namespace component
