#pragma once

#include <span>
#include <string_view>

namespace sim {

// One row of the NOTAM tables; the number and the period follow from its place in them.
struct NotamRow {
  std::string_view location;
  std::string_view series;
  int fromDay;  // days from the start of 2024
  int days;     // beyond ten years; 0: permanent
  std::string_view summary;
  std::string_view text;  // item E
};

std::span<const NotamRow> aerodromeNotamRows();
std::span<const NotamRow> airspaceNotamRows();  // regions, then head office

}  // namespace sim
