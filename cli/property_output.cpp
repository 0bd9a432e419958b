#include "cli/property_output.h"

#include "cli/text_output.h"

#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <iterator>

namespace cli {
namespace {

/// A value as a person reads it, on one line.
std::string cell(const Json& value) {
  if (value.is_null()) return {};
  if (value.is_boolean()) return value.get<bool>() ? "yes" : "no";
  if (value.is_string()) {
    return oneLine(ktpnaips::text::fromUtf8(value.get_ref<const std::string&>()));
  }
  if (!value.is_object()) return value.dump();
  std::string cells;
  for (const auto& part : value) cells += (cells.empty() ? "" : " ") + cell(part);
  return cells;
}

}  // namespace

Json jsonValue(std::wstring_view text) {
  return jsonText(text);
}

Json jsonValue(bool value) {
  return value;
}

Json jsonValue(ktpnaips::DateTime value) {
  return dateTimeText(value);
}

void printValue(std::string_view label, const Json& value) {
  printField(label, ktpnaips::text::fromUtf8(cell(value)));
}

void printRows(std::vector<std::string> headings, const std::vector<std::vector<Json>>& rows) {
  if (rows.empty()) {
    printLine("None.");
    return;
  }
  Table table(std::move(headings));
  for (const auto& row : rows) {
    std::vector<std::string> cells;
    std::ranges::transform(row, std::back_inserter(cells), cell);
    table.addRow(std::move(cells));
  }
  table.print();
}

}  // namespace cli
