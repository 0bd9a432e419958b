#include <ktpnaips/platform/windows/com.h>

#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/windows/system_text.h>

#include <cstring>
#include <string>

namespace ktpnaips::com {
namespace {

/// What the object that failed has to say, if anything.
std::wstring objectText() {
  ComPtr<IErrorInfo> information;
  if (GetErrorInfo(0, information.put()) != S_OK) return {};
  Bstr text;
  information->GetDescription(text.put());
  return std::wstring(text.view());
}

std::wstring withoutLineEnd(std::wstring text) {
  while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r')) text.pop_back();
  return text;
}

}  // namespace

void throwFailure(HRESULT result) {
  if (result == E_OUTOFMEMORY) throw RuntimeFault(fault::outOfMemory);
  std::wstring text = withoutLineEnd(objectText());
  if (text.empty()) {
    text =
        withoutLineEnd(systemText(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, static_cast<DWORD>(result)));
  }
  if (text.empty()) text = L"Automation error";
  throw RuntimeFault(static_cast<std::int32_t>(result), text);
}

Bstr::Bstr(std::string_view text) {
  const auto size = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  text_ = SysAllocStringLen(nullptr, static_cast<UINT>(length));
  if (text_ == nullptr) throw std::bad_alloc();
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, text_, length);
}

Variant::Variant(std::string_view bytes) : Variant() {
  V_ARRAY(&value_) = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
  if (V_ARRAY(&value_) == nullptr) throw std::bad_alloc();
  V_VT(&value_) = VT_ARRAY | VT_UI1;
  if (bytes.empty()) return;
  void* data = nullptr;
  check(SafeArrayAccessData(V_ARRAY(&value_), &data));
  std::memcpy(data, bytes.data(), bytes.size());
  check(SafeArrayUnaccessData(V_ARRAY(&value_)));
}

}  // namespace ktpnaips::com
