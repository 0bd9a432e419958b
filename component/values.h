#pragma once

#include "classes.h"

#include <ktpnaips/core/date_time.h>
#include <ktpnaips/platform/windows/com.h>
#include <ktpnaips/platform/xml.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

/// Values of automation and of the library.
namespace ktpnaips::component {

/// To the second. Throws fault 6 outside the years 100 to 9999.
DateTime toDateTime(DATE date);
/// What automation cannot tell, outside those years, is the zero date-time.
DATE toDate(DateTime value);

xml::Node toNode(IDispatch* native);
xml::Document toDocument(IDispatch* native);

/// A value that a host hands in, which becomes what the library's member takes. Throws fault 13
/// when it cannot.
template <class Automation>
class Argument;

template <>
class Argument<BSTR> {
 public:
  explicit Argument(BSTR value) noexcept : value_(value) {}
  operator std::wstring_view() const noexcept {  // NOLINT(google-explicit-constructor)
    return {value_ != nullptr ? value_ : L"", SysStringLen(value_)};
  }

 private:
  BSTR value_;
};

template <>
class Argument<short> {
 public:
  explicit Argument(short value) noexcept : value_(value) {}
  operator std::int16_t() const noexcept { return value_; }           // NOLINT
  operator bool() const noexcept { return value_ != VARIANT_FALSE; }  // NOLINT

 private:
  short value_;
};

template <>
class Argument<long> {
 public:
  explicit Argument(long value) noexcept : value_(value) {}
  operator std::int32_t() const noexcept { return value_; }  // NOLINT

 private:
  long value_;
};

template <>
class Argument<double> {
 public:
  explicit Argument(double value) noexcept : value_(value) {}
  operator double() const noexcept { return value_; }       // NOLINT
  operator DateTime() const { return toDateTime(value_); }  // NOLINT

 private:
  double value_;
};

template <>
class Argument<IDispatch*> {
 public:
  explicit Argument(IDispatch* value) noexcept : value_(value) {}
  operator xml::Node() const { return toNode(value_); }          // NOLINT
  operator xml::Document() const { return toDocument(value_); }  // NOLINT

 private:
  IDispatch* value_;
};

template <class Interface>
class Argument<Interface*> {
 public:
  explicit Argument(Interface* value) noexcept : value_(value) {}
  template <class T>
  operator std::shared_ptr<T>() const {  // NOLINT
    if constexpr (std::same_as<T, Point>) {
      return pointBehind(value_);
    } else {
      return std::static_pointer_cast<T>(objectBehind(typeid(T), value_));
    }
  }

 private:
  Interface* value_;
};

template <class Automation>
Argument<Automation> argument(Automation value) noexcept {
  return Argument<Automation>(value);
}

// A value of the library for a host.
inline void give(short* to, std::int16_t value) noexcept {
  *to = value;
}
inline void give(short* to, bool value) noexcept {
  *to = value ? VARIANT_TRUE : VARIANT_FALSE;
}
inline void give(long* to, std::int32_t value) noexcept {
  *to = value;
}
inline void give(double* to, double value) noexcept {
  *to = value;
}
inline void give(double* to, DateTime value) {
  *to = toDate(value);
}
inline void give(BSTR* to, std::wstring_view value) {
  *to = com::Bstr(value).detach();
}
void give(IDispatch** to, const xml::Node& value);
void give(IDispatch** to, const xml::Document& value);
template <class Interface, class T>
void give(Interface** to, const std::shared_ptr<T>& value) {
  if (value != nullptr) *to = presented(value).template as<Interface>(__uuidof(Interface)).detach();
}

template <class Method>
struct ParametersOf;
template <class Interface, class... Parameters>
struct ParametersOf<HRESULT (STDMETHODCALLTYPE Interface::*)(Parameters...)> {
  using Types = std::tuple<Parameters...>;
};

/// The type of a method's parameter, counted from 0.
template <class Method, std::size_t Index>
using Parameter = std::tuple_element_t<Index, typename ParametersOf<Method>::Types>;

/// An index or a key that a host hands in.
class IndexOrKey {
 public:
  explicit IndexOrKey(VARIANT value);

  /// Calls `use` with the one that it is.
  template <class Use>
  auto with(Use&& use) const {
    return value_.isText() ? use(value_.view()) : use(index_);
  }

 private:
  com::Variant value_;
  std::int32_t index_ = 0;
};

/// True for an optional argument that the host left out.
bool isMissing(const VARIANT& value) noexcept;

/// The key that a host hands in; throws fault 13 when it is not text.
std::wstring keyIn(VARIANT value);

}  // namespace ktpnaips::component
