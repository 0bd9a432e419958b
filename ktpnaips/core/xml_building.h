#pragma once

#include <ktpnaips/platform/xml.h>

#include <string>
#include <string_view>
#include <vector>

/// The primitives by which every request document is built.
namespace ktpnaips::modBrevank {

/// Appends an element "ndd:" + `name` as the last child of `parent` and returns it; an empty `text`
/// leaves it without a child. A failure is reported and gives no element.
xml::Node addElement(const xml::Node& parent, std::wstring_view name,
                     std::wstring_view namespaceUri, std::wstring_view text = {});

/// Appends one such element for each text, in order.
void addElements(const xml::Node& parent, std::wstring_view name, std::wstring_view namespaceUri,
                 const std::vector<std::wstring>& texts);

/// Sets an attribute without prefix, replacing one of the same name, and returns it. A failure is
/// reported and gives no attribute.
xml::Node addAttribute(const xml::Node& element, std::wstring_view name,
                       std::wstring_view namespaceUri, std::wstring_view value);

/// "true" or "false", as Booleans stand in requests.
constexpr std::wstring_view boolean(bool value) {
  return value ? L"true" : L"false";
}

}  // namespace ktpnaips::modBrevank
