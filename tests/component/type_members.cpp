#include "tests/component/type_members.h"

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>
#include <string_view>

namespace members {
namespace {

std::string takeText(BSTR text) {
  std::string result = narrow(text);
  SysFreeString(text);
  return result;
}

/// The name of a type that another one points to, as the table writes it.
std::string referenceName(ITypeInfo* info, HREFTYPE reference, const std::vector<Type>& known) {
  TypeInfo target;
  check(info->GetRefTypeInfo(reference, &target), "GetRefTypeInfo");
  std::string name = nameOf(target.Get());
  if (name == "IDispatch") return "object";
  if (name == "IUnknown") return "unknown";
  if (name.starts_with('_')) name.erase(0, 1);
  return find(known, name) == nullptr ? "object" : name;
}

std::string typeName(ITypeInfo* info, const TYPEDESC& type, const std::vector<Type>& known) {
  static const std::map<VARTYPE, std::string> names{
      {VT_VOID, "void"}, {VT_HRESULT, "void"},    {VT_BSTR, "text"},       {VT_BOOL, "bool"},
      {VT_I2, "short"},  {VT_I4, "long"},         {VT_INT, "long"},        {VT_R8, "double"},
      {VT_DATE, "date"}, {VT_VARIANT, "variant"}, {VT_UNKNOWN, "unknown"}, {VT_DISPATCH, "object"},
  };
  if (type.vt == VT_USERDEFINED) return referenceName(info, type.hreftype, known);
  if (type.vt == VT_PTR) return typeName(info, *type.lptdesc, known);
  const auto found = names.find(type.vt);
  return found == names.end() ? "type " + std::to_string(type.vt) : found->second;
}

Function functionOf(ITypeInfo* info, const FUNCDESC& description, const std::vector<Type>& known) {
  Function function;
  BSTR name = nullptr;
  check(info->GetDocumentation(description.memid, &name, nullptr, nullptr, nullptr),
        "GetDocumentation");
  function.name = takeText(name);
  function.kind = description.invkind == INVOKE_PROPERTYGET      ? "get"
                  : description.invkind == INVOKE_PROPERTYPUT    ? "put"
                  : description.invkind == INVOKE_PROPERTYPUTREF ? "set"
                                                                 : "method";
  function.type = typeName(info, description.elemdescFunc.tdesc, known);
  for (SHORT each = 0; each < description.cParams; ++each) {
    const ELEMDESC& parameter = description.lprgelemdescParam[each];
    const std::string type = typeName(info, parameter.tdesc, known);
    const USHORT flags = parameter.paramdesc.wParamFlags;
    if ((flags & PARAMFLAG_FRETVAL) != 0) {
      function.type = type;
    } else {
      function.parameters.push_back(((flags & PARAMFLAG_FOPT) != 0 ? "?" : "") + type);
    }
  }
  if (function.kind == "put" || function.kind == "set") {
    function.type = function.parameters.back();
    function.parameters.pop_back();
  }
  return function;
}

std::string textOf(const GUID& id) {
  std::array<wchar_t, 39> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return narrow(text.data());
}

/// A type as a compiler sees it.
std::string declared(ITypeInfo* info, const TYPEDESC& type) {
  if (type.vt == VT_PTR) return declared(info, *type.lptdesc) + '*';
  if (type.vt != VT_USERDEFINED) return "type " + std::to_string(type.vt);
  TypeInfo target;
  check(info->GetRefTypeInfo(type.hreftype, &target), "GetRefTypeInfo");
  return nameOf(target.Get());
}

std::string lineOf(ITypeInfo* info, const FUNCDESC& function) {
  BSTR name = nullptr;
  check(info->GetDocumentation(function.memid, &name, nullptr, nullptr, nullptr),
        "GetDocumentation");
  std::string line = takeText(name) + ": number " + std::to_string(function.memid) + ", place " +
                     std::to_string(static_cast<std::size_t>(function.oVft) / sizeof(void*)) +
                     ", kind " + std::to_string(function.invkind) + ", flags " +
                     std::to_string(function.wFuncFlags) + ", " +
                     declared(info, function.elemdescFunc.tdesc) + '(';
  for (SHORT each = 0; each < function.cParams; ++each) {
    const ELEMDESC& parameter = function.lprgelemdescParam[each];
    if (each != 0) line += ", ";
    line += std::to_string(parameter.paramdesc.wParamFlags) + ' ' + declared(info, parameter.tdesc);
  }
  return line + ')';
}

void addLines(ITypeInfo* info, std::vector<std::string>& into) {
  const Attributes attributes = attributesOf(info);
  const std::string name = nameOf(info);
  std::string line = name + ": kind " + std::to_string(attributes.kind) + ", flags " +
                     std::to_string(attributes.flags) + ", " + textOf(attributes.id);
  for (UINT index = 0; index < attributes.implemented; ++index) {
    HREFTYPE reference = 0;
    TypeInfo base;
    check(info->GetRefTypeOfImplType(index, &reference), "GetRefTypeOfImplType");
    check(info->GetRefTypeInfo(reference, &base), "GetRefTypeInfo");
    line += ", " + nameOf(base.Get());
  }
  into.push_back(std::move(line));
  for (UINT index = 0; index < attributes.functions; ++index) {
    FUNCDESC* function = nullptr;
    check(info->GetFuncDesc(index, &function), "GetFuncDesc");
    into.push_back(name + '.' + lineOf(info, *function));
    info->ReleaseFuncDesc(function);
  }
}

void addFunctions(ITypeInfo* info, const std::vector<Type>& known, std::vector<Function>& into) {
  const Attributes attributes = attributesOf(info);
  if (IsEqualIID(attributes.id, IID_IDispatch) || IsEqualIID(attributes.id, IID_IUnknown)) return;
  if (attributes.implemented != 0) addFunctions(implementedInterface(info, 0).Get(), known, into);
  for (UINT index = 0; index < attributes.functions; ++index) {
    FUNCDESC* description = nullptr;
    check(info->GetFuncDesc(index, &description), "GetFuncDesc");
    into.push_back(functionOf(info, *description, known));
    info->ReleaseFuncDesc(description);
  }
}

}  // namespace

void check(HRESULT result, const char* what) {
  if (FAILED(result))
    throw std::runtime_error(std::string(what) + " failed: " + std::to_string(result));
}

std::string narrow(const wchar_t* text) {
  std::string result;
  for (; text != nullptr && *text != 0; ++text)
    result += *text < 0x80 ? static_cast<char>(*text) : '?';
  return result;
}

Attributes attributesOf(ITypeInfo* info) {
  TYPEATTR* attributes = nullptr;
  check(info->GetTypeAttr(&attributes), "GetTypeAttr");
  const Attributes result{attributes->typekind, attributes->wTypeFlags,
                          attributes->guid,     attributes->cImplTypes,
                          attributes->cFuncs,   (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0};
  info->ReleaseTypeAttr(attributes);
  return result;
}

std::string nameOf(ITypeInfo* info) {
  BSTR name = nullptr;
  check(info->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr), "GetDocumentation");
  return takeText(name);
}

TypeInfo implementedInterface(ITypeInfo* type, UINT index) {
  HREFTYPE reference = 0;
  TypeInfo result;
  check(type->GetRefTypeOfImplType(index, &reference), "GetRefTypeOfImplType");
  check(type->GetRefTypeInfo(reference, &result), "GetRefTypeInfo");
  if (attributesOf(result.Get()).kind != TKIND_DISPATCH) return result;
  TypeInfo table;
  constexpr UINT dualPartner = static_cast<UINT>(-1);
  check(result->GetRefTypeOfImplType(dualPartner, &reference), "GetRefTypeOfImplType");
  check(result->GetRefTypeInfo(reference, &table), "GetRefTypeInfo");
  return table;
}

std::vector<Function> functionsOf(ITypeInfo* interfaceInfo, const std::vector<Type>& known) {
  std::vector<Function> functions;
  addFunctions(interfaceInfo, known, functions);
  std::erase_if(functions, [all = functions](const Function& function) {
    return function.kind == "put" && std::ranges::any_of(all, [&](const Function& other) {
             return other.kind == "set" && other.name == function.name;
           });
  });
  return functions;
}

std::vector<std::string> linesOf(ITypeLib* library) {
  std::vector<std::string> lines;
  for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
    TypeInfo info;
    check(library->GetTypeInfo(index, &info), "GetTypeInfo");
    HREFTYPE reference = 0;
    constexpr UINT dualPartner = static_cast<UINT>(-1);
    if (attributesOf(info.Get()).isDual &&
        info->GetRefTypeOfImplType(dualPartner, &reference) == S_OK) {
      check(info->GetRefTypeInfo(reference, &info), "GetRefTypeInfo");
    }
    addLines(info.Get(), lines);
  }
  return lines;
}

}  // namespace members
