#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cli::pack {

/// A part of a briefing's text and the heading above it; the first part may have none.
struct TextPart {
  std::string heading;
  std::string text;
};

/// Divides a text at the lines that are underlined with hyphens or equals signs.
std::vector<TextPart> partsOf(std::string_view text);

/// The pieces of a text between its empty lines.
std::vector<std::string> paragraphsOf(std::string_view text);

/// The characters of the longest line.
std::size_t longestLine(std::string_view text);

/// Whether lines too long for a page's width have columns, which breaking them would spoil.
bool isTable(std::string_view text);

}  // namespace cli::pack
