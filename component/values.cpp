#include "values.h"

#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/windows/xml.h>

#include <msxml2.h>

#include <chrono>
#include <cmath>

namespace ktpnaips::component {
namespace {

constexpr double secondsADay = 86400;
// The first and the last second that an automation date can tell.
constexpr DateTime firstDateTime =
    std::chrono::local_days{std::chrono::year{100} / std::chrono::January / std::chrono::day{1}};
constexpr DateTime endOfDateTimes =
    std::chrono::local_days{std::chrono::year{10000} / std::chrono::January / std::chrono::day{1}};

bool canTell(DateTime value) {
  return value >= firstDateTime && value < endOfDateTimes;
}

/// What import libraries do not have on every compiler.
constexpr IID documentInterface = {
    0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

template <class Native>
com::ComPtr<Native> nativeOf(IDispatch* object, const IID& id) {
  void* native = nullptr;
  if (object == nullptr) return {};
  if (FAILED(object->QueryInterface(id, &native))) throw RuntimeFault(fault::typeMismatch);
  return com::ComPtr<Native>::attach(static_cast<Native*>(native));
}

}  // namespace

// The day counts from 1899-12-30, forwards or backwards; its fraction always runs forwards.
DateTime toDateTime(DATE date) {
  constexpr double bound = 4e6;
  if (!(date > -bound && date < bound)) throw RuntimeFault(fault::overflow);
  const double day = std::trunc(date);
  const double second = std::round(std::fabs(date - day) * secondsADay);
  const DateTime value = zeroDateTime + std::chrono::days(static_cast<int>(day)) +
                         std::chrono::seconds(static_cast<int>(second));
  if (!canTell(value)) throw RuntimeFault(fault::overflow);
  return value;
}

DATE toDate(DateTime value) {
  if (!canTell(value)) return 0;
  const auto sinceZero = value - zeroDateTime;
  const auto day = std::chrono::floor<std::chrono::days>(sinceZero);
  const auto days = static_cast<double>(day.count());
  const double fraction = static_cast<double>((sinceZero - day).count()) / secondsADay;
  return days < 0 ? days - fraction : days + fraction;
}

xml::Node toNode(IDispatch* native) {
  return xml::fromNative(nativeOf<IXMLDOMNode>(native, IID_IXMLDOMNode).get());
}

xml::Document toDocument(IDispatch* native) {
  return xml::fromNative(nativeOf<IXMLDOMDocument2>(native, documentInterface).get());
}

void give(IDispatch** to, const xml::Node& value) {
  IXMLDOMNode* native = nullptr;
  xml::toNative(value, &native);
  *to = native;
}

void give(IDispatch** to, const xml::Document& value) {
  IXMLDOMDocument2* native = nullptr;
  xml::toNative(value, &native);
  *to = native;
}

IndexOrKey::IndexOrKey(VARIANT value) {
  com::check(VariantCopyInd(value_.put(), &value));
  if (value_.isText()) return;
  com::Variant number;
  const HRESULT converted = VariantChangeType(number.put(), &value, 0, VT_I4);
  if (converted == DISP_E_OVERFLOW) throw RuntimeFault(fault::overflow);
  if (FAILED(converted)) throw RuntimeFault(fault::typeMismatch);
  index_ = V_I4(&number.get());
}

bool isMissing(const VARIANT& value) noexcept {
  return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

std::wstring keyIn(VARIANT value) {
  com::Variant key;
  com::check(VariantCopyInd(key.put(), &value));
  if (!key.isText()) throw RuntimeFault(fault::typeMismatch);
  return std::wstring(key.view());
}

}  // namespace ktpnaips::component
