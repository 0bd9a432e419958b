#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/platform/xml.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

/// The children of request parts as data: rows of elements that each hold one property as text.
namespace ktpnaips {

/// When an element is sent: always, or unless its property's text is empty.
enum class Sent { always, unlessEmpty };

/// An element that holds one property of a `Part`.
template <class Part>
struct TextItem {
  std::wstring_view element;               ///< local name
  std::wstring (*text)(const Part& part);  ///< the text of the property
  Sent sent = Sent::always;                ///< judged by that text
  /// What is written for the text, also when that is nothing; null: the text itself.
  std::wstring (*written)(std::wstring_view text) = nullptr;
};

/// A property's value as requests carry it.
std::wstring requestText(std::wstring_view value);
std::wstring requestText(bool value);
std::wstring requestText(std::int16_t value);
std::wstring requestText(DateTime value);

/// For `TextItem::text`: the property `Member`, as `textOf<&Part::Member>`.
template <auto Member, class Part>
std::wstring textOf(const Part& part) {
  return requestText((part.*Member)());
}

/// Appends the part's items to `parent`, in their order.
template <class Part>
void addItems(const xml::Node& parent, std::wstring_view namespaceUri, const Part& part,
              std::type_identity_t<std::span<const TextItem<Part>>> items) {
  for (const auto& [element, textFrom, sent, written] : items) {
    const std::wstring text = textFrom(part);
    if (text.empty() && sent == Sent::unlessEmpty) continue;
    modBrevank::addElement(parent, element, namespaceUri, written ? written(text) : text);
  }
}

/// Appends an empty element and lets `part`, unless there is none, fill it.
void addPart(const xml::Node& parent, std::wstring_view element, std::wstring_view namespaceUri,
             const IAppendable* part);

}  // namespace ktpnaips
