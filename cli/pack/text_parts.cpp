#include "cli/pack/text_parts.h"

#include "cli/text_output.h"

#include <algorithm>

namespace cli::pack {
namespace {

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const auto end = text.find('\n');
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
}

bool isUnderline(std::string_view line) {
  constexpr std::size_t shortest = 3;
  return line.size() >= shortest && (line.find_first_not_of('-') == std::string_view::npos ||
                                     line.find_first_not_of('=') == std::string_view::npos);
}

bool isBlank(std::string_view line) {
  return line.find_first_not_of(" \t") == std::string_view::npos;
}

/// Without the empty lines around it.
std::string trimmedLines(const std::string& text) {
  std::vector<std::string_view> lines = linesOf(text);
  while (!lines.empty() && isBlank(lines.back())) lines.pop_back();
  const auto first = std::ranges::find_if_not(lines, isBlank);
  std::string result;
  for (auto line = first; line != lines.end(); ++line) {
    if (line != first) result += '\n';
    result += *line;
  }
  return result;
}

}  // namespace

std::vector<TextPart> partsOf(std::string_view text) {
  const auto lines = linesOf(text);
  std::vector<TextPart> parts(1);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const bool isHeading = i + 1 < lines.size() && isUnderline(lines[i + 1]) && !isBlank(lines[i]);
    if (isHeading) {
      parts.push_back({std::string(lines[i]), {}});
      ++i;
    } else {
      parts.back().text.append(lines[i]).append("\n");
    }
  }
  for (TextPart& part : parts) part.text = trimmedLines(part.text);
  if (parts.size() > 1 && parts.front().text.empty()) parts.erase(parts.begin());
  return parts;
}

std::vector<std::string> paragraphsOf(std::string_view text) {
  std::vector<std::string> paragraphs;
  bool isOpen = false;
  for (const auto line : linesOf(text)) {
    if (isBlank(line)) {
      isOpen = false;
    } else if (isOpen) {
      paragraphs.back().append("\n").append(line);
    } else {
      paragraphs.emplace_back(line);
      isOpen = true;
    }
  }
  return paragraphs;
}

std::size_t longestLine(std::string_view text) {
  std::size_t longest = 0;
  for (const auto line : linesOf(text)) longest = std::max(longest, widthOf(line));
  return longest;
}

bool isTable(std::string_view text) {
  constexpr std::size_t pageWidth = 80;
  return std::ranges::any_of(linesOf(text), [](std::string_view line) {
    if (line.size() <= pageWidth) return false;
    const auto start = line.find_first_not_of(' ');
    return start != std::string_view::npos && line.find("  ", start) != std::string_view::npos;
  });
}

}  // namespace cli::pack
