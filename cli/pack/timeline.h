#pragma once

#include <ktpnaips/core/date_time.h>

#include <optional>
#include <string>
#include <vector>

namespace cli::pack {

enum class SpanKind { stage, light, validity };

/// A bar of a row.
struct Span {
  ktpnaips::DateTime from;
  ktpnaips::DateTime till;
};

/// One row of a time line.
struct TimeRow {
  std::string name;
  SpanKind kind = SpanKind::stage;
  std::vector<Span> spans;
};

/// A drawing of this width, its letters so high.
struct TimelineSize {
  double width = 720;
  double fontSize = 13;
};

/// The time line as an SVG element: UTC from the first of the stages and lights to the last of
/// them, each row's bars with their times. `id` makes the identifiers in it unique in its document.
std::string timelineSvg(const std::vector<TimeRow>& rows, TimelineSize size,
                        const std::string& description, const std::string& id);

}  // namespace cli::pack
