#pragma once

#include <windows.h>

#include <oleauto.h>
#include <unknwn.h>

#include <cstdint>
#include <new>
#include <string_view>
#include <utility>

/// Owners of what COM hands out, and faults for what it refuses.
namespace ktpnaips::com {

/// Throws the fault of a failed call: "Out of memory", or the call's own number with the text that
/// the failing object or the system has for it.
[[noreturn]] void throwFailure(HRESULT result);

inline void check(HRESULT result) {
  if (FAILED(result)) throwFailure(result);
}

/// One counted reference to a COM object, or none.
template <class Interface>
class ComPtr {
 public:
  ComPtr() noexcept = default;
  ComPtr(const ComPtr& other) noexcept : pointer_(other.pointer_) { retain(); }
  ComPtr(ComPtr&& other) noexcept : pointer_(other.detach()) {}
  ~ComPtr() {
    if (pointer_ != nullptr) pointer_->Release();
  }
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }

  /// Adds a reference to an object that somebody else owns.
  static ComPtr share(Interface* pointer) noexcept {
    ComPtr shared;
    shared.pointer_ = pointer;
    shared.retain();
    return shared;
  }
  /// Takes over a reference.
  static ComPtr attach(Interface* pointer) noexcept {
    ComPtr attached;
    attached.pointer_ = pointer;
    return attached;
  }

  explicit operator bool() const noexcept { return pointer_ != nullptr; }
  [[nodiscard]] Interface* get() const noexcept { return pointer_; }
  Interface* operator->() const noexcept { return pointer_; }
  /// Where a call stores its result; what was held is released first.
  Interface** put() noexcept {
    *this = ComPtr();
    return &pointer_;
  }
  /// Gives the reference away.
  Interface* detach() noexcept { return std::exchange(pointer_, nullptr); }

  /// Another interface of the object.
  template <class Other>
  [[nodiscard]] ComPtr<Other> as(const IID& interfaceId) const {
    void* other = nullptr;
    check(pointer_->QueryInterface(interfaceId, &other));
    return ComPtr<Other>::attach(static_cast<Other*>(other));
  }

 private:
  void retain() noexcept {
    if (pointer_ != nullptr) pointer_->AddRef();
  }

  Interface* pointer_ = nullptr;
};

/// An automation string, or none.
class Bstr {
 public:
  Bstr() noexcept = default;
  explicit Bstr(std::wstring_view text)
      : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (text_ == nullptr) throw std::bad_alloc();
  }
  /// From UTF-8.
  explicit Bstr(std::string_view text);
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }

  [[nodiscard]] BSTR get() const noexcept { return text_; }
  /// Where a call stores its result; what was held is freed first.
  BSTR* put() noexcept {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  /// Gives the string away.
  BSTR detach() noexcept { return std::exchange(text_, nullptr); }
  [[nodiscard]] std::wstring_view view() const noexcept {
    return text_ != nullptr ? std::wstring_view(text_, SysStringLen(text_)) : std::wstring_view();
  }

 private:
  BSTR text_ = nullptr;
};

/// An automation value; empty until one is put in.
class Variant {
 public:
  Variant() noexcept { VariantInit(&value_); }
  explicit Variant(std::wstring_view text) : Variant() {
    V_BSTR(&value_) = Bstr(text).detach();
    V_VT(&value_) = VT_BSTR;
  }
  explicit Variant(bool truth) noexcept : Variant() {
    V_BOOL(&value_) = truth ? VARIANT_TRUE : VARIANT_FALSE;
    V_VT(&value_) = VT_BOOL;
  }
  explicit Variant(std::int32_t number) noexcept : Variant() {
    V_I4(&value_) = number;
    V_VT(&value_) = VT_I4;
  }
  Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { VariantClear(&value_); }

  /// A copy of the bytes as an automation array.
  explicit Variant(std::string_view bytes);

  /// For calls, which take values as copies that they do not own.
  [[nodiscard]] const VARIANT& get() const noexcept { return value_; }
  VARIANT* put() noexcept {
    VariantClear(&value_);
    return &value_;
  }
  [[nodiscard]] bool isText() const noexcept { return V_VT(&value_) == VT_BSTR; }
  /// The text that the value holds; empty when it holds none.
  [[nodiscard]] std::wstring_view view() const noexcept {
    if (!isText() || V_BSTR(&value_) == nullptr) return {};
    return {V_BSTR(&value_), SysStringLen(V_BSTR(&value_))};
  }

 private:
  VARIANT value_;
};

}  // namespace ktpnaips::com
