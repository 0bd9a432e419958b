#pragma once

#include "cli/pack/flight.h"

#include <ktpnaips/core/date_time.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

/// What a pack holds. All texts are UTF-8 without control characters, not yet escaped.
namespace cli::pack {

/// What came of one request: its text, or why there is none.
struct Answer {
  std::string title;
  bool failed = false;
  std::string text;    ///< the content; empty when it failed
  std::string reason;  ///< why it failed
};

/// First and last light at a place.
struct Light {
  Answer answer;
  std::string place;
  std::string date;   ///< asked for, "YYYY-MM-DD"
  std::string first;  ///< as the service writes it
  std::string last;
  std::optional<ktpnaips::DateTime> firstTime;  ///< where it can be read as a date-time
  std::optional<ktpnaips::DateTime> lastTime;
};

/// A file of a chart or briefing.
struct Picture {
  std::string mediaType;  ///< "image/png", by the content
  std::string base64;
  std::string fileName;  ///< under which it can be saved
};

struct Chart {
  Answer answer;
  std::string key;
  std::string stored;
  std::vector<Picture> pictures;
};

/// A NOTAM of the bulletin's list.
struct Notam {
  std::string id;
  std::string location;
  std::string summary;
};

/// What the location directory says about a name.
struct Location {
  Answer answer;
  std::string name;  ///< its full name
  std::string description;
  std::optional<Position> position;
};

struct Period {
  ktpnaips::DateTime from;
  ktpnaips::DateTime till;
};

struct Pack {
  Flight flight;
  ktpnaips::DateTime made;  ///< UTC
  std::string madeBy;       ///< program, account and service
  bool isSimulated = false;

  Answer bulletin;
  Answer number;  ///< of the bulletin
  std::optional<Period> validity;
  std::string validityUnknown;  ///< why there is none
  Answer winds;
  Answer notamList;
  std::vector<Notam> notams;
  std::vector<Answer> notamTexts;
  std::vector<Answer> raim;
  Answer chartList;
  bool hasCharts = true;  ///< false: none were asked for
  std::vector<Chart> charts;
  std::vector<Answer> routes;
  std::vector<Light> lights;
  std::map<std::string, Location> locations;  ///< by name

  std::vector<Answer> failures;  ///< the answers that failed, in their order
};

/// The light at a place that lasts at this time, or begins next after it; or nothing.
const Light* lightAt(const Pack& pack, const std::string& place, ktpnaips::DateTime time);

/// The calendar date at a place when it is this time in UTC, by its longitude.
ktpnaips::DateTime localDate(ktpnaips::DateTime time, const std::optional<Position>& position);

/// What a pilot should know before reading on: a bulletin that ends too early, darkness, places
/// that are not known. A sentence each.
std::vector<std::string> remarksOn(const Pack& pack);

}  // namespace cli::pack
