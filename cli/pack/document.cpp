#include "cli/pack/document.h"

#include "cli/pack/html.h"
#include "cli/pack/map_layout.h"
#include "cli/pack/map_svg.h"
#include "cli/pack/route_map.h"
#include "cli/pack/style.h"
#include "cli/pack/text_parts.h"
#include "cli/pack/timeline.h"
#include "cli/pack/times.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <optional>
#include <ratio>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace cli::pack {
namespace {

constexpr const char* unknown = "–";

std::string positionText(const std::optional<Position>& at) {
  if (!at) return unknown;
  const auto part = [](double degrees, int digits, const char* hemispheres) {
    const long tenths = std::lround(std::abs(degrees) * 600);
    return fmt::format("{:0{}}°{:02}.{}'{}", tenths / 600, digits, tenths % 600 / 10, tenths % 10,
                       hemispheres[degrees < 0 ? 1 : 0]);
  };
  return part(at->lat, 2, "NS") + " " + part(at->lon, 3, "EW");
}

std::string wayText(const Way& way) {
  if (way.code.empty()) return way.text.empty() ? "DCT" : way.text;
  return way.text.empty() ? way.code : way.code + ": " + way.text;
}

/// An entry of the table of contents.
struct Entry {
  std::string id;
  std::string title;
  std::vector<Entry> parts;
};

/// A table being written.
class HtmlTable {
 public:
  HtmlTable(const std::string& caption, const std::vector<std::string>& headings,
            std::set<std::size_t> numbers = {})
      : numbers_(std::move(numbers)) {
    html_ = "<div class=\"wide\"><table>" + element("caption", caption) + "<thead><tr>";
    for (std::size_t i = 0; i < headings.size(); ++i) {
      html_ += element("th", headings[i],
                       numbers_.contains(i) ? "scope=\"col\" class=\"number\"" : "scope=\"col\"");
    }
    html_ += "</tr></thead><tbody>";
  }

  void row(const std::vector<std::string>& cells) {
    html_ += "<tr>";
    for (std::size_t i = 0; i < cells.size(); ++i) {
      html_ += element("td", cells[i], numbers_.contains(i) ? "class=\"number\"" : "");
    }
    html_ += "</tr>";
  }

  [[nodiscard]] std::string take() { return html_ + "</tbody></table></div>\n"; }

 private:
  std::set<std::size_t> numbers_;
  std::string html_;
};

std::string failureBox(const Answer& answer) {
  return "<div class=\"failed\">" + element("p", answer.title + " is missing") +
         element("pre", answer.reason) + "</div>\n";
}

std::string lightTime(const std::optional<ktpnaips::DateTime>& time, const std::string& given) {
  return time ? weekdayTimeText(*time) : given.empty() ? unknown : given;
}

std::string lightText(const Pack& pack, const Place& place, ktpnaips::DateTime time) {
  const Light* light = lightAt(pack, place.text, time);
  if (light == nullptr) return unknown;
  return lightTime(light->firstTime, light->first) + " – " +
         lightTime(light->lastTime, light->last);
}

/// The line of a failure that says most: the service's own, or the first.
std::string reasonInShort(const std::string& reason) {
  constexpr std::string_view mark = "Info: ";
  const auto info = reason.find(mark);
  const auto start = info == std::string::npos ? 0 : info + mark.size();
  return reason.substr(start, reason.find('\n', start) - start);
}

/// A text as a string of a style sheet, and nothing else whatever it holds.
std::string cssString(const std::string& text) {
  std::string result = "\"";
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    const bool isPlain = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                         (c >= '0' && c <= '9') || c == ' ' || c == ':' || c == ',' || code >= 0x80;
    result += isPlain ? std::string(1, c) : fmt::format("\\{:06x}", code);
  }
  return result + "\"";
}

class Document {
 public:
  explicit Document(const Pack& pack) : pack_(pack) {}

  std::string write() {
    writeSummary();
    writeMap();
    writeTimeline();
    writePoints();
    writeText("bulletin", "Bulletin", pack_.bulletin);
    writeText("winds", "Winds and temperatures", pack_.winds);
    writeNotams();
    writeRaim();
    writeCharts();
    return head() + contents() + "<main>\n" + body_ + "</main>\n" + foot();
  }

 private:
  [[nodiscard]] const Flight& flight() const { return pack_.flight; }

  void open(const std::string& id, const std::string& title) {
    entries_.push_back({id, title, {}});
    body_ += fmt::format("<section id=\"{0}\" aria-labelledby=\"{0}-h\">", id);
    body_ += fmt::format("<h2 id=\"{}-h\">{}</h2>\n", id, escaped(title));
  }
  void close() { body_ += "</section>\n"; }

  /// A heading below the section's, which can be jumped to.
  void part(const std::string& title) {
    Entry& section = entries_.back();
    std::string id = fmt::format("{}-{}", section.id, section.parts.size() + 1);
    body_ += element("h3", title, fmt::format("id=\"{}\"", id)) + "\n";
    section.parts.push_back({std::move(id), title, {}});
  }

  [[nodiscard]] std::string title() const {
    return "Flight pack " + flight().aircraft + " " + routeOf(flight());
  }

  [[nodiscard]] std::string head() const {
    std::string html =
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        // Nothing runs, and nothing is fetched.
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
        "'unsafe-inline'; img-src data:; base-uri 'none'; form-action 'none'\">\n";
    html += element("title", title()) + "\n<style>" + std::string(styleSheet()) + pageFoot() +
            "</style>\n</head>\n<body>\n<header class=\"top\"><h1>" + escaped(flight().aircraft) +
            " <span class=\"route\">" + escaped(routeOf(flight())) + "</span></h1>";
    html += element("p", "First departure " + dayText(flight().stages.front().etd) + ", " +
                             timeText(flight().stages.front().etd) + ". All times are UTC.");
    html += element(
        "p", "Made " + dayText(pack_.made) + ", " + timeText(pack_.made) + ". " + pack_.madeBy);
    return html + "</header>\n";
  }

  /// At the foot of each printed page.
  [[nodiscard]] std::string pageFoot() const {
    return "@page { @bottom-left { content: " +
           cssString(flight().aircraft + " " + routeOf(flight()) + ", made " + dayText(pack_.made) +
                     " " + timeText(pack_.made)) +
           "; } }\n";
  }

  [[nodiscard]] std::string contents() const {
    std::string html = "<nav aria-label=\"Contents\"><ul>\n";
    const auto link = [](const Entry& entry) {
      return element("a", entry.title, fmt::format("href=\"#{}\"", entry.id));
    };
    for (const Entry& entry : entries_) {
      html += "<li>" + link(entry);
      if (!entry.parts.empty()) html += "<ul>";
      for (const Entry& each : entry.parts) html += "<li>" + link(each) + "</li>";
      html += entry.parts.empty() ? "</li>\n" : "</ul></li>\n";
    }
    return html + "</ul></nav>\n";
  }

  [[nodiscard]] std::string foot() const {
    return "<footer>" +
           element(
               "p",
               "Everything here is what the service answered when this pack was made. Tracks are "
               "true and initial, distances are great circles; times of arrival reckon with "
               "still air at the filed airspeed. First and last light are of the local day.") +
           "</footer>\n</body>\n</html>\n";
  }

  void writeSummary() {
    open("summary", "Summary");
    writeRemarks();
    writeFailures();
    body_ += "<div class=\"stages\">";
    for (const Stage& stage : flight().stages) writeStage(stage);
    body_ += "</div>\n";
    close();
  }

  void writeRemarks() {
    const auto remarks = remarksOn(pack_);
    if (remarks.empty()) return;
    body_ += "<ul class=\"remarks\">";
    for (const std::string& remark : remarks) body_ += element("li", remark);
    body_ += "</ul>\n";
  }

  void writeFailures() {
    if (pack_.failures.empty()) return;
    body_ += "<div class=\"failed\">" + element("p", "What was asked for and is missing:") + "<ul>";
    for (const Answer& answer : pack_.failures) {
      body_ += element("li", answer.title + ": " + reasonInShort(answer.reason));
    }
    body_ += "</ul></div>\n";
  }

  void writeStage(const Stage& stage) {
    const auto length = lengthOf(stage);
    const auto arrival = arrivalOf(flight(), stage);
    body_ += "<article>" + element("h3", stage.from.text + " → " + stage.to.text) + "<dl>";
    fact("ETD", dayTimeText(stage.etd));
    if (arrival) {
      const std::chrono::duration<double, std::ratio<60>> flown = *arrival - stage.etd;
      fact("ETA, still air", dayTimeText(*arrival) + ", " + durationText(flown.count()));
    }
    fact("Level, TAS", stage.level + ", " + flight().tas);
    if (length) fact("Distance", fmt::format("{} NM", std::lround(*length)));
    fact("Route", wayText(stage.way));
    if (stage.alternate) {
      const Alternate& other = *stage.alternate;
      const std::string level = other.level.empty() ? "" : ", " + other.level;
      fact("Alternate", other.place.text + level + ", " + wayText(other.way));
    }
    fact("Light " + stage.from.text, lightText(pack_, stage.from, stage.etd));
    fact("Light " + stage.to.text, lightText(pack_, stage.to, arrival.value_or(stage.etd)));
    body_ += "</dl></article>\n";
  }

  void fact(const std::string& name, const std::string& value) {
    body_ += element("dt", name) + element("dd", value);
  }

  void writeMap() {
    open("map", "Route map");
    const auto points = mapPoints(flight());
    const auto legs = mapLegs(flight());
    if (points.empty()) {
      body_ += element("p", "No position of the flight is known, so there is no map.");
    } else {
      body_ += "<figure>";
      const std::string told = "Route map " + routeOf(flight());
      const std::string description = legsInWords(flight());
      constexpr MapSize broad{720, 13, 0.66};
      constexpr MapSize narrow{360, 11, 1.05};
      body_ += "<div class=\"broad\">" +
               mapSvg(layOutMap(points, legs, broad), told, description, "map-broad") + "</div>";
      body_ += "<div class=\"narrow\">" +
               mapSvg(layOutMap(points, legs, narrow), told, description, "map-narrow") + "</div>";
      body_ += element("figcaption",
                       "Stereographic, north up. Tracks are true. Not a chart for navigation.") +
               "</figure>\n";
      writeLegs();
    }
    for (const Answer& answer : pack_.routes) {
      if (answer.failed) body_ += failureBox(answer);
    }
    close();
  }

  void writeLegs() {
    body_ += "<div class=\"tables\">";
    for (const Stage& stage : flight().stages) {
      HtmlTable table("From " + stage.from.text, {"To", "Track", "Distance", "Sum"}, {1, 2, 3});
      double sum = 0;
      for (const RouteLeg& each : legsOf(stage)) {
        const double length = distanceBetween(each.leg.from, each.leg.to);
        if (!each.leg.isAlternate) sum += length;
        const std::string text = legText(each.leg.from, each.leg.to);
        table.row({each.to + (each.leg.isAlternate ? ", alternate" : ""),
                   text.substr(0, text.find(' ')), fmt::format("{} NM", std::lround(length)),
                   each.leg.isAlternate ? "" : fmt::format("{} NM", std::lround(sum))});
      }
      body_ += table.take();
    }
    body_ += "</div>\n";
  }

  void writeTimeline() {
    open("timeline", "Time line");
    const auto rows = timeRows();
    std::string description;
    for (const TimeRow& row : rows) {
      for (const Span& span : row.spans) {
        description += fmt::format("{} from {} to {}. ", row.name, dayTimeText(span.from),
                                   dayTimeText(span.till));
      }
    }
    body_ += "<figure>";
    body_ += "<div class=\"broad\">" +
             timelineSvg(rows, TimelineSize{}, description, "time-broad") + "</div>";
    constexpr TimelineSize narrow{360, 11};
    body_ +=
        "<div class=\"narrow\">" + timelineSvg(rows, narrow, description, "time-narrow") + "</div>";
    body_ += element("figcaption", timelineCaption()) + "</figure>\n";
    writeLights();
    close();
  }

  [[nodiscard]] std::vector<TimeRow> timeRows() const {
    std::vector<TimeRow> rows;
    for (const Stage& stage : flight().stages) {
      const auto arrival = arrivalOf(flight(), stage).value_or(stage.etd);
      rows.push_back(
          {stage.from.text + "-" + stage.to.text, SpanKind::stage, {{stage.etd, arrival}}});
    }
    for (const Light& light : pack_.lights) {
      if (!light.firstTime || !light.lastTime) continue;
      auto row = std::ranges::find(rows, light.place + " light", &TimeRow::name);
      if (row == rows.end()) {
        rows.push_back({light.place + " light", SpanKind::light, {}});
        row = std::prev(rows.end());
      }
      row->spans.push_back({*light.firstTime, *light.lastTime});
      std::ranges::sort(row->spans, {}, &Span::from);
    }
    if (pack_.validity) {
      rows.push_back(
          {"Bulletin", SpanKind::validity, {{pack_.validity->from, pack_.validity->till}}});
    }
    return rows;
  }

  [[nodiscard]] std::string timelineCaption() const {
    const std::string validity =
        pack_.validity
            ? "The bulletin holds from " + dayTimeText(pack_.validity->from) + " till " +
                  dayTimeText(pack_.validity->till) + "."
            : "Till when the bulletin holds is not known: " + pack_.validityUnknown + ".";
    return "Stages from ETD to arrival in still air, light from first to last. " + validity;
  }

  void writeLights() {
    HtmlTable table("First and last light of the local day",
                    {"Place", "Date", "First light", "Last light"});
    for (const Light& light : pack_.lights) {
      if (light.answer.failed) continue;
      table.row({light.place, light.date, lightTime(light.firstTime, light.first),
                 lightTime(light.lastTime, light.last)});
    }
    body_ += table.take();
    for (const Light& light : pack_.lights) {
      if (light.answer.failed) body_ += failureBox(light.answer);
    }
  }

  void writeText(const std::string& id, const std::string& title, const Answer& answer) {
    open(id, title);
    writeAnswer(answer, true);
    close();
  }

  /// The text, under headings where it underlines lines of its own; or why there is none.
  void writeAnswer(const Answer& answer, bool hasParts) {
    if (answer.failed) {
      body_ += failureBox(answer);
      return;
    }
    for (const TextPart& each : partsOf(answer.text)) {
      if (!each.heading.empty() && hasParts) {
        part(each.heading);
      } else if (!each.heading.empty()) {
        body_ += element("p", each.heading);
      }
      writePre(each.heading.empty() ? answer.title : each.heading, each.text);
    }
  }

  void writePre(const std::string& label, const std::string& text) {
    if (text.empty()) return;
    const std::size_t width = longestLine(text);
    if (isTable(text)) {
      body_ += element("pre", text,
                       fmt::format("class=\"table\" style=\"--letters: {}\" tabindex=\"0\" "
                                   "role=\"region\" aria-label=\"{}\"",
                                   width, escaped(label)));
    } else {
      constexpr std::size_t halfPage = 53;
      constexpr long fewLines = 8;
      const bool isSlim = width <= halfPage && std::ranges::count(text, '\n') > fewLines;
      body_ += isSlim ? "<pre class=\"slim\">" : "<pre>";
      for (const std::string& each : paragraphsOf(text)) {
        constexpr long aColumn = 20;
        const bool isWhole = std::ranges::count(each, '\n') < aColumn;
        body_ += element("span", each, isWhole ? "class=\"whole\"" : "");
      }
      body_ += "</pre>";
    }
    body_ += "\n";
  }

  void writeNotams() {
    open("notams", "NOTAM");
    if (!pack_.notamList.reason.empty()) {
      body_ += failureBox(pack_.notamList);
    } else if (pack_.notams.empty()) {
      body_ += element("p", "The bulletin lists no NOTAM.");
    } else {
      HtmlTable table(fmt::format("{} NOTAM of the bulletin", pack_.notams.size()),
                      {"Location", "NOTAM", "Subject"});
      for (const Notam& notam : pack_.notams) table.row({notam.location, notam.id, notam.summary});
      body_ += table.take();
    }
    for (const Answer& answer : pack_.notamTexts) {
      part(answer.title);
      writeAnswer(answer, false);
    }
    close();
  }

  void writeRaim() {
    open("raim", "RAIM prediction");
    for (const Answer& answer : pack_.raim) writeAnswer(answer, false);
    close();
  }

  void writeCharts() {
    open("charts", "Charts");
    if (!pack_.hasCharts) body_ += element("p", "The charts of the directory were not asked for.");
    if (pack_.chartList.failed) body_ += failureBox(pack_.chartList);
    if (pack_.charts.empty() && pack_.hasCharts && !pack_.chartList.failed) {
      body_ += element("p", "There are no such charts.");
    }
    for (const Chart& chart : pack_.charts) {
      body_ += "<div class=\"sheet\">";
      part(chart.answer.title);
      if (chart.answer.failed) body_ += failureBox(chart.answer);
      for (std::size_t i = 0; i < chart.pictures.size(); ++i) {
        if (i > 0) body_ += "</div><div class=\"sheet\">";
        writePicture(chart, i);
      }
      body_ += "</div>\n";
    }
    close();
  }

  void writePicture(const Chart& chart, std::size_t index) {
    const Picture& picture = chart.pictures[index];
    std::string told = chart.answer.title;
    if (chart.pictures.size() > 1)
      told += fmt::format(", {} of {}", index + 1, chart.pictures.size());
    const std::string data = "data:" + picture.mediaType + ";base64," + picture.base64;
    std::string about = chart.key.empty() ? told : told + ", chart " + chart.key;
    if (!chart.stored.empty()) about += ", stored " + chart.stored;
    body_ += "<figure class=\"chart\">";
    if (picture.mediaType.starts_with("image/")) {
      body_ += fmt::format("<img alt=\"{}\" src=\"{}\">", escaped("Chart: " + about), data);
      body_ += element("figcaption", about);
    } else {
      body_ += fmt::format(
          "<figcaption>{}: <a download=\"{}\" href=\"{}\">{}</a> ({}, not shown here)</figcaption>",
          escaped(about), escaped(picture.fileName), data, escaped(picture.fileName),
          escaped(picture.mediaType));
    }
    body_ += "</figure>\n";
  }

  void writePoints() {
    open("points", "Points");
    HtmlTable table("Every point of the flight", {"Point", "Position", "Name"});
    std::set<std::string> written;
    bool hasBearings = false;
    forEachPlace(flight(), [&](const Place& place) {
      if (!written.insert(place.text).second) return;
      hasBearings = hasBearings || place.distance > 0;
      table.row({place.text, positionText(place.position), nameOf(place)});
    });
    body_ += table.take();
    if (hasBearings) {
      body_ +=
          element("p",
                  "Points by bearing and distance are drawn on true bearings; where the bearing "
                  "is magnetic they lie off by the variation.",
                  "class=\"note\"");
    }
    for (const auto& [name, location] : pack_.locations) {
      if (location.answer.failed) body_ += failureBox(location.answer);
    }
    close();
  }

  [[nodiscard]] std::string nameOf(const Place& place) const {
    if (place.distance > 0) {
      return fmt::format("{:.0f} NM from {} on bearing {:03.0f}°", place.distance, place.name,
                         place.bearing);
    }
    const auto found = pack_.locations.find(place.name);
    if (found == pack_.locations.end()) return "coordinates";
    const Location& location = found->second;
    return location.name + (location.description.empty() ? "" : ", " + location.description);
  }

  const Pack& pack_;
  std::string body_;
  std::vector<Entry> entries_;
};

}  // namespace

std::string htmlDocument(const Pack& pack) {
  return Document(pack).write();
}

std::string routeOf(const Flight& flight) {
  std::string route;
  std::string last;
  for (const Stage& stage : flight.stages) {
    if (stage.from.text != last) route += (route.empty() ? "" : ", ") + stage.from.text;
    route += " → " + stage.to.text;
    last = stage.to.text;
  }
  return route;
}

}  // namespace cli::pack
