#pragma once

#include <oaidl.h>
#include <wrl/client.h>

#include <string>
#include <vector>

#include "tests/component/member_table.h"

namespace members {

using TypeInfo = Microsoft::WRL::ComPtr<ITypeInfo>;

/// Throws std::runtime_error when a call of COM has failed.
void check(HRESULT result, const char* what);

std::string narrow(const wchar_t* text);

struct Attributes {
  TYPEKIND kind;
  WORD flags;
  IID id;
  WORD implemented;  ///< how many types it implements
  WORD functions;
  bool isDual;
};
Attributes attributesOf(ITypeInfo* info);
std::string nameOf(ITypeInfo* info);

/// The view of the interface whose functions are those of its table of functions, for the type that
/// a class names as its default or as another one.
TypeInfo implementedInterface(ITypeInfo* type, UINT index);

/// The functions of an interface in order, those of its bases first, IDispatch's not among them.
/// Types that are not in `known` read as object; a put beside a set of the same property is left
/// out.
std::vector<Function> functionsOf(ITypeInfo* interfaceInfo, const std::vector<Type>& known);

/// All that a compiled host depends on: for each type a line with its identifier, its flags and
/// what it implements, for each member one with its number, its place and its types, in order and
/// behind the type's name.
std::vector<std::string> linesOf(ITypeLib* library);

}  // namespace members
