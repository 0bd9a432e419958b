#include "failure.h"

#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/windows/com.h>

#include <cstdint>
#include <exception>
#include <new>
#include <string>

namespace ktpnaips::component {
namespace {

/// Where automation errors carry the runtime's numbers.
constexpr std::uint32_t runtimeErrors = 0x800A0000U;

HRESULT resultOf(std::int32_t number) noexcept {
  if (number == fault::outOfMemory) return E_OUTOFMEMORY;
  if (number < 0) return number;
  return static_cast<HRESULT>(runtimeErrors | static_cast<std::uint32_t>(number));
}

void describe(std::wstring_view source, const std::wstring& description) {
  com::ComPtr<ICreateErrorInfo> information;
  com::check(CreateErrorInfo(information.put()));
  com::check(information->SetSource(com::Bstr(source).get()));
  com::check(information->SetDescription(com::Bstr(description).get()));
  com::check(SetErrorInfo(0, information.as<IErrorInfo>(IID_IErrorInfo).get()));
}

HRESULT failed(std::wstring_view source, const RuntimeFault& fault) noexcept {
  try {
    describe(source, fault.description());
  } catch (const std::exception&) {
    SetErrorInfo(0, nullptr);  // the number alone
  }
  return resultOf(fault.number());
}

}  // namespace

HRESULT failure(std::wstring_view source) noexcept {
  try {
    throw;
  } catch (const RuntimeFault& fault) {
    return failed(source, fault);
  } catch (const std::bad_alloc&) {
    SetErrorInfo(0, nullptr);
    return E_OUTOFMEMORY;
  } catch (...) {
    return failed(source, RuntimeFault(fault::internalError));
  }
}

void checkHost(HRESULT result) {
  try {
    com::check(result);
  } catch (const RuntimeFault& fault) {
    throwHostFailure(fault.number(), fault.description());
  }
}

void throwHostFailure(HRESULT result, std::wstring_view text) {
  const auto number = static_cast<std::uint32_t>(result);
  const bool isRuntimeError = (number & 0xFFFF0000U) == runtimeErrors;
  throw RuntimeFault(isRuntimeError ? static_cast<std::int32_t>(number & 0xFFFFU) : result, text);
}

}  // namespace ktpnaips::component
