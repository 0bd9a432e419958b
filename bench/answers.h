#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The answers that are measured, made up as a service sends them.
namespace bench {

inline constexpr std::string_view schemaNamespace = "http://bench.example/naips/xsd";

/// The answer of a name: "login"; "briefing" (60 kB of text and 6 PNG of 200 kB); "product-BYTES"
/// (a briefing with one product); "text-BYTES" (one with text only); "directory-ENTRIES" (routes
/// with 4 children each). Empty for another name.
std::string answer(std::string_view name);

/// `size` bytes that follow no pattern, the same ones every time.
std::string someBytes(std::size_t size);

/// The bytes as Base64 in lines of 76 characters, each ended by CR LF.
std::string base64(std::string_view bytes);

}  // namespace bench
