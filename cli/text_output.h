#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Results for people, on standard output.
namespace cli {

/// UTF-8 of a text of the library, its line ends made single line feeds.
std::string plain(std::wstring_view text);

/// As `plain`, with everything on one line.
std::string oneLine(std::wstring_view text);

/// Writes a line.
void printLine(std::string_view line = {});

/// Writes "label: value", aligned with others of the same width; nothing for an empty value.
void printField(std::string_view label, std::wstring_view value);

/// Writes a text, its long lines broken at spaces for the terminal's width.
void printText(std::wstring_view text);

/// Writes the path of a product's file.
void printFile(const std::wstring& path);

/// Rows of text below a heading, their columns aligned.
class Table {
 public:
  explicit Table(std::vector<std::string> headings);

  void addRow(std::vector<std::string> cells);
  void print() const;

 private:
  std::vector<std::vector<std::string>> rows_;
};

/// The columns that a UTF-8 text takes on a terminal, one a character.
std::size_t widthOf(std::string_view utf8);

}  // namespace cli
