#include "cli/pack/timeline.h"

#include "cli/pack/html.h"
#include "cli/pack/times.h"
#include "cli/text_output.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string_view>

namespace cli::pack {

using ktpnaips::DateTime;
using std::chrono::hours;

namespace {

constexpr double rowHeight = 30;
constexpr double barHeight = 20;
constexpr double letterWidth = 0.62;  // of a monospaced font, in font sizes

const char* styleOf(SpanKind kind) {
  switch (kind) {
    case SpanKind::light:
      return "light";
    case SpanKind::validity:
      return "validity";
    default:
      return "stage";
  }
}

class Timeline {
 public:
  Timeline(const std::vector<TimeRow>& rows, TimelineSize size) : rows_(rows), size_(size) {
    findRange();
    std::size_t longest = 0;
    for (const TimeRow& row : rows) longest = std::max(longest, widthOf(row.name));
    left_ = static_cast<double>(longest) * letter() + 10;
    top_ = 2 * size.fontSize + 16;
    bottom_ = top_ + rowHeight * static_cast<double>(rows.size());
  }

  [[nodiscard]] double height() const { return bottom_ + 6; }

  std::string svg() {
    drawDays();
    drawHours();
    double y = top_;
    for (const TimeRow& row : rows_) {
      drawRow(row, y);
      y += rowHeight;
    }
    return svg_;
  }

 private:
  [[nodiscard]] double letter() const { return letterWidth * size_.fontSize; }
  [[nodiscard]] double widthOfTime() const { return 6 * letter(); }  // "22:00Z"

  void findRange() {
    bool isFirst = true;
    for (const TimeRow& row : rows_) {
      if (row.kind == SpanKind::validity) continue;
      for (const Span& span : row.spans) {
        from_ = isFirst ? span.from : std::min(from_, span.from);
        till_ = isFirst ? span.till : std::max(till_, span.till);
        isFirst = false;
      }
    }
    from_ = std::chrono::floor<hours>(from_ - std::chrono::minutes(30));
    till_ = std::chrono::ceil<hours>(till_ + std::chrono::minutes(30));
  }

  [[nodiscard]] double xOf(DateTime time) const {
    const auto part = [](auto duration) { return std::chrono::duration<double>(duration).count(); };
    const double right = size_.width - 4;
    return left_ + (right - left_) * part(time - from_) / part(till_ - from_);
  }

  void text(std::string_view style, double x, double y, const std::string& text) {
    svg_ += fmt::format(R"(<text class="{}" x="{:.1f}" y="{:.1f}">{}</text>)", style, x, y,
                        escaped(text));
  }

  /// The dates, where there is room for them, and a line at each midnight.
  void drawDays() {
    for (DateTime day = std::chrono::floor<std::chrono::days>(from_); day < till_;
         day += std::chrono::days(1)) {
      const double start = xOf(std::max(day, from_));
      const double end = xOf(std::min<DateTime>(day + std::chrono::days(1), till_));
      const std::string name = dayText(day).substr(0, dayText(day).rfind(' '));
      if (static_cast<double>(widthOf(name)) * letter() <= end - start - 4) {
        text("day", start + 3, size_.fontSize + 2, name);
      }
      if (day <= from_) continue;
      svg_ += fmt::format(R"(<path class="midnight" d="M{0:.1f} 2V{1:.1f}"/>)", start, bottom_);
    }
  }

  void drawHours() {
    const double perHour = xOf(from_ + hours(1)) - xOf(from_);
    int step = 24;
    for (const int each : {12, 6, 3, 2, 1}) {
      if (each * perHour >= 3.2 * letter()) step = each;
    }
    const DateTime day = std::chrono::floor<std::chrono::days>(from_);
    for (DateTime time = day; time <= till_; time += hours(step)) {
      const double x = xOf(time);
      if (time < from_ || x + letter() * 1.5 > size_.width) continue;
      svg_ +=
          fmt::format(R"(<path class="hour" d="M{:.1f} {:.1f}V{:.1f}"/>)", x, top_ - 6, bottom_);
      text("hourtext", x, top_ - 9, timeText(time).substr(0, 2));
    }
  }

  void drawRow(const TimeRow& row, double y) {
    const double middle = y + rowHeight / 2 + size_.fontSize * 0.35;
    text("rowname", 2, middle, row.name);
    double taken = left_;
    for (const Span& span : row.spans) taken = drawSpan(row, span, y, taken);
  }

  /// Draws a bar with its times: inside where it is long enough, otherwise beside it as far as
  /// there is room. Returns where the room ends that it takes.
  double drawSpan(const TimeRow& row, const Span& span, double y, double taken) {
    if (span.till <= from_ || span.from >= till_) return taken;
    const double start = xOf(std::max(span.from, from_));
    const double end = std::max(start + 3, xOf(std::min(span.till, till_)));
    const double middle = y + rowHeight / 2 + size_.fontSize * 0.35;
    svg_ += fmt::format(
        R"(<rect class="{}" x="{:.1f}" y="{:.1f}" width="{:.1f}" height="{:.1f}" rx="2"/>)",
        styleOf(row.kind), start, y + (rowHeight - barHeight) / 2, end - start, barHeight);
    const bool hasStart = span.from >= from_;
    const bool hasEnd = span.till <= till_;
    const double needed = widthOfTime() * ((hasStart ? 1 : 0) + (hasEnd ? 1 : 0)) + 16;
    if (end - start >= needed) {
      const std::string inside = fmt::format("time on-{}", styleOf(row.kind));
      if (hasStart) text(inside, start + 5, middle, timeText(span.from));
      if (hasEnd) text(inside + " end", end - 5, middle, timeText(span.till));
      return end;
    }
    if (hasStart && start - widthOfTime() - 5 >= taken) {
      text("time end", start - 5, middle, timeText(span.from));
    }
    if (!hasEnd || end + widthOfTime() + 5 > size_.width) return end;
    text("time", end + 5, middle, timeText(span.till));
    return end + widthOfTime() + 5;
  }

  const std::vector<TimeRow>& rows_;
  TimelineSize size_;
  DateTime from_;
  DateTime till_;
  double left_ = 0;
  double top_ = 0;
  double bottom_ = 0;
  std::string svg_;
};

}  // namespace

std::string timelineSvg(const std::vector<TimeRow>& rows, TimelineSize size,
                        const std::string& description, const std::string& id) {
  Timeline timeline(rows, size);
  return fmt::format(
      R"(<svg class="timeline" role="img" aria-labelledby="{0}-title {0}-desc" viewBox="0 0 {1:.0f} )"
      R"({2:.0f}" font-size="{3}"><title id="{0}-title">Time line, UTC</title><desc id="{0}-desc">)"
      R"({4}</desc>{5}</svg>)",
      id, size.width, timeline.height(), size.fontSize, escaped(description), timeline.svg());
}

}  // namespace cli::pack
