#include "simulator/data/notams.h"

#include <algorithm>

#include "simulator/data/notam_table.h"
#include "simulator/data/text.h"

namespace sim {

namespace {

constexpr std::string_view headOffice = "YSHO";
constexpr int year = 24;

std::string twoDigits(int value) {
  return std::string(value < 10 ? "0" : "") + std::to_string(value);
}

// "24 10 281800": year, month, and day with the time.
std::string periodText(TimePoint time) {
  const std::string date = isoDate(time);
  return date.substr(2, 2) + ' ' + date.substr(5, 2) + ' ' + dayHourMinute(time);
}

std::string fullText(const Notam& notam, std::string_view itemE, bool permanent) {
  std::string text = notam.series;
  text += std::to_string(notam.number);
  text += '/';
  text += twoDigits(notam.year);
  text += " NOTAMN\nA) ";
  text += notam.location;
  text += "\nB) FROM ";
  text += periodText(notam.from);
  text += "\nC) TO ";
  text += permanent ? std::string("PERM") : periodText(notam.till) + " EST";
  text += "\nE) ";
  text += itemE;
  text += '\n';
  return text;
}

Notam make(const NotamRow& row, int number) {
  using namespace std::chrono;
  constexpr TimePoint start = sys_days{2024y / January / 1};
  Notam notam;
  notam.location = row.location;
  notam.series = row.series;
  notam.number = number;
  notam.year = year;
  notam.from = start + days{row.fromDay} + hours{number % 24};
  const bool permanent = row.days == 0;
  // Long enough for whoever runs the service in the coming years.
  notam.till = permanent ? TimePoint(sys_days{2099y / December / 31})
                         : notam.from + days{3650 + row.days} + hours{6};
  notam.key = notam.series + std::to_string(number) + '/' + twoDigits(year) + '-' + notam.location;
  notam.summary = row.summary;
  notam.headOffice = row.location == headOffice;
  notam.text = fullText(notam, row.text, permanent);
  return notam;
}

std::vector<Notam> build() {
  std::vector<Notam> all;
  int number = 1042;
  for (const auto rows : {aerodromeNotamRows(), airspaceNotamRows()}) {
    for (const NotamRow& row : rows) {
      all.push_back(make(row, number));
      number += 7;
    }
  }
  return all;
}

}  // namespace

std::span<const Notam> notams() {
  static const std::vector<Notam> all = build();
  return all;
}

std::vector<const Notam*> notamsFor(std::string_view location) {
  std::vector<const Notam*> found;
  for (const Notam& notam : notams()) {
    if (!notam.headOffice && equalIgnoringCase(notam.location, location)) {
      found.push_back(&notam);
    }
  }
  return found;
}

std::vector<const Notam*> headOfficeNotams() {
  std::vector<const Notam*> found;
  for (const Notam& notam : notams()) {
    if (notam.headOffice) {
      found.push_back(&notam);
    }
  }
  return found;
}

const Notam* findNotam(std::string_view key) {
  const auto all = notams();
  const auto found = std::ranges::find_if(
      all, [key](const Notam& notam) { return equalIgnoringCase(notam.key, key); });
  return found == all.end() ? nullptr : &*found;
}

}  // namespace sim
