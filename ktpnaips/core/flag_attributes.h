#pragma once

#include <ktpnaips/core/flag_word.h>
#include <ktpnaips/platform/xml.h>

#include <cstdint>
#include <span>
#include <string_view>

namespace ktpnaips {

/// A bit of a flag word and what it is called in requests.
struct NamedFlag {
  std::int32_t bit;        ///< from 0 to 30
  std::wstring_view name;  ///< local name of the attribute or element
};

/// Appends an empty element that carries one attribute a flag, "true" or "false", in the order
/// given, and returns it.
xml::Node addFlags(const xml::Node& parent, std::wstring_view element,
                   std::wstring_view namespaceUri, const FlagWord& word,
                   std::span<const NamedFlag> flags);

}  // namespace ktpnaips
