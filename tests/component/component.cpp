#include "tests/component/component.h"

#include <algorithm>
#include <regex>
#include <stdexcept>
#include <vector>

#include "tests/component/type_members.h"

using members::check;
using Microsoft::WRL::ComPtr;

namespace component {
namespace {

HMODULE module() {
  static const HMODULE loaded = LoadLibraryW(path().c_str());
  if (loaded == nullptr) throw std::runtime_error("KTPNaips.dll does not load");
  return loaded;
}

template <class Function>
Function* exported(const char* name) {
  const FARPROC address = GetProcAddress(module(), name);
  if (address == nullptr) throw std::runtime_error(std::string("no export ") + name);
  // By way of a plain pointer: the two types of function have nothing in common.
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
}

_variant_t succeeded(const Outcome& outcome, std::wstring_view member) {
  if (FAILED(outcome.code)) {
    throw std::runtime_error(members::narrow(std::wstring(member).c_str()) +
                             " failed: " + std::to_string(outcome.code) + ' ' +
                             members::narrow(outcome.text.c_str()));
  }
  return outcome.value;
}

}  // namespace

std::wstring path() {
  std::wstring file(MAX_PATH, L'\0');
  file.resize(GetModuleFileNameW(nullptr, file.data(), MAX_PATH));
  return file.substr(0, file.rfind(L'\\') + 1) + L"KTPNaips.dll";
}

ComPtr<ITypeLib> typeLibrary() {
  ComPtr<ITypeLib> library;
  check(LoadTypeLibEx(path().c_str(), REGKIND_NONE, &library), "LoadTypeLibEx");
  return library;
}

ComPtr<ITypeInfo> type(std::string_view name) {
  const ComPtr<ITypeLib> library = typeLibrary();
  for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
    ComPtr<ITypeInfo> info;
    check(library->GetTypeInfo(index, &info), "GetTypeInfo");
    if (members::nameOf(info.Get()) == name) return info;
  }
  return nullptr;
}

HRESULT classObject(REFCLSID id, REFIID interfaceId, void** result) {
  return exported<decltype(DllGetClassObject)>("DllGetClassObject")(id, interfaceId, result);
}

ComPtr<IClassFactory> factory(std::string_view className) {
  const ComPtr<ITypeInfo> info = type(className);
  if (!info) throw std::runtime_error("no class " + std::string(className));
  ComPtr<IClassFactory> result;
  check(classObject(members::attributesOf(info.Get()).id, IID_PPV_ARGS(&result)),
        "DllGetClassObject");
  return result;
}

Object create(std::string_view className) {
  Object created;
  check(factory(className)->CreateInstance(nullptr, IID_PPV_ARGS(&created)), "CreateInstance");
  return created;
}

Outcome invoke(IDispatch* object, std::wstring_view member, WORD flags,
               std::initializer_list<_variant_t> arguments) {
  std::wstring name(member);
  LPOLESTR names = name.data();
  DISPID id = DISPID_UNKNOWN;
  const HRESULT known = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(known)) return {known, {}, {}};
  std::vector<VARIANTARG> reversed(arguments.begin(), arguments.end());
  std::ranges::reverse(reversed);
  DISPID put = DISPID_PROPERTYPUT;
  const bool writes = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{reversed.data(), writes ? &put : nullptr,
                        static_cast<UINT>(reversed.size()), writes ? 1U : 0U};
  EXCEPINFO exception{};
  Outcome outcome{};
  outcome.code = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                &outcome.value, &exception, nullptr);
  if (outcome.code != DISP_E_EXCEPTION) return outcome;
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  outcome.code = exception.scode;
  if (exception.bstrDescription != nullptr) outcome.text = exception.bstrDescription;
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrHelpFile);
  return outcome;
}

_variant_t get(const Object& object, std::wstring_view member,
               std::initializer_list<_variant_t> arguments) {
  return succeeded(invoke(object.Get(), member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments),
                   member);
}

void put(const Object& object, std::wstring_view member, const _variant_t& value) {
  succeeded(invoke(object.Get(), member, DISPATCH_PROPERTYPUT, {value}), member);
}

void set(const Object& object, std::wstring_view member, IDispatch* value) {
  succeeded(invoke(object.Get(), member, DISPATCH_PROPERTYPUTREF, {_variant_t(value)}), member);
}

_variant_t call(const Object& object, std::wstring_view member,
                std::initializer_list<_variant_t> arguments) {
  return succeeded(invoke(object.Get(), member, DISPATCH_METHOD, arguments), member);
}

Object object(const _variant_t& value) {
  Object result;
  const bool holdsObject = value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
  if (holdsObject && value.punkVal != nullptr)
    check(value.punkVal->QueryInterface(IID_PPV_ARGS(&result)), "QueryInterface");
  return result;
}

std::wstring text(const _variant_t& value) {
  if (value.vt != VT_BSTR) throw std::runtime_error("no text: " + std::to_string(value.vt));
  return value.bstrVal == nullptr ? L"" : std::wstring(value.bstrVal, SysStringLen(value.bstrVal));
}

Object newElement() {
  CLSID id{};
  Object document;
  check(CLSIDFromProgID(L"MSXML2.DOMDocument", &id), "CLSIDFromProgID");
  check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&document)),
        "CoCreateInstance");
  call(document, L"loadXML", {L"<root/>"});
  return object(get(document, L"documentElement"));
}

Object document(const std::wstring& text) {
  const Object result = object(get(newElement(), L"ownerDocument"));
  call(result, L"loadXML", {text.c_str()});
  return result;
}

Object answer(const std::wstring& children) {
  return document(
      L"<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/' "
      L"xmlns:n='http://naips.example/naips/xsd'><s:Body><n:answer status='SUCCESS'>" +
      children + L"</n:answer></s:Body></s:Envelope>");
}

std::wstring content(const Object& element) {
  static const std::wregex layout(L"\\r\\n\\t*| xmlns:ndd=\"urn:x\"");
  return std::regex_replace(text(get(element, L"xml")), layout, L"");
}

std::wstring written(const Object& part) {
  const Object element = newElement();
  call(part, L"appendTo", {_variant_t(element.Get()), L"urn:x"});
  return content(element);
}

void Test::SetUp() {
  check(CoInitialize(nullptr), "CoInitialize");
}

void Test::TearDown() {
  EXPECT_EQ(canUnload(), S_OK) << "an object of the component is left";
  CoUninitialize();
}

HRESULT canUnload() {
  return exported<decltype(DllCanUnloadNow)>("DllCanUnloadNow")();
}

}  // namespace component
