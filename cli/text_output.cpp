#include "cli/text_output.h"

#include "cli/characters.h"
#include "cli/emphasis.h"
#include "cli/secrets.h"
#include "cli/standard_output.h"

#include <ktpnaips/platform/terminal.h>
#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <utility>

namespace cli {

using ktpnaips::terminal::Stream;

namespace {

constexpr std::size_t labelWidth = 14;

void printWrapped(std::string_view line, std::size_t width) {
  while (width > 0 && widthOf(line) > width) {
    const auto space = line.substr(0, width + 1).rfind(' ');
    if (space == std::string_view::npos || space == 0) break;
    printLine(line.substr(0, space));
    line.remove_prefix(space + 1);
  }
  printLine(line);
}

}  // namespace

std::size_t widthOf(std::string_view utf8) {
  return static_cast<std::size_t>(std::ranges::count_if(
      utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string plain(std::wstring_view text) {
  std::string utf8 = ktpnaips::text::toUtf8(text);
  std::string lines;
  lines.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const bool isLineEnd = utf8[i] == '\r' && i + 1 < utf8.size() && utf8[i + 1] == '\n';
    if (!isLineEnd) lines += utf8[i];
  }
  return harmless(lines);
}

std::string oneLine(std::wstring_view text) {
  std::string line = plain(text);
  std::ranges::replace_if(
      line, [](char c) { return c == '\n' || c == '\t'; }, ' ');
  return line;
}

void printLine(std::string_view line) {
  writeOutput(withoutSecrets(line) + '\n');
}

void printField(std::string_view label, std::wstring_view value) {
  if (value.empty()) return;
  const std::string shown = emphasised(Stream::output, Emphasis::heading, std::string(label) + ':');
  const std::size_t used = widthOf(label) + 1;
  printLine(shown + std::string(std::max(labelWidth, used + 1) - used, ' ') + plain(value));
}

void printText(std::wstring_view text) {
  const std::string lines = plain(text);
  const std::size_t width = ktpnaips::terminal::columns();
  std::string_view rest = lines;
  while (!rest.empty()) {
    const auto end = rest.find('\n');
    printWrapped(rest.substr(0, end), width);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
}

void printFile(const std::wstring& path) {
  printLine("  " + (path.empty() ? "(no content)" : oneLine(path)));
}

Table::Table(std::vector<std::string> headings) {
  rows_.push_back(std::move(headings));
}

void Table::addRow(std::vector<std::string> cells) {
  rows_.push_back(std::move(cells));
}

void Table::print() const {
  std::vector<std::size_t> widths(rows_.front().size());
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], widthOf(row[i]));
  }
  for (const auto& row : rows_) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      if (i + 1 < row.size()) line.append(widths[i] - widthOf(row[i]) + 2, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    const bool isHeading = &row == &rows_.front();
    printLine(isHeading ? emphasised(Stream::output, Emphasis::heading, line) : line);
  }
}

}  // namespace cli
