#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/data/time.h"

namespace sim {

struct Notam {
  std::string key;       // "C1234/24-YSSY"
  std::string location;  // aerodrome or flight information region
  std::string series;    // "C"
  int number;
  int year;  // two digits
  TimePoint from;
  TimePoint till;  // far in the future when permanent
  std::string summary;
  std::string text;  // full text, lines end with LF
  bool headOffice;   // of the whole country, in no location's list
};

std::span<const Notam> notams();

// Without the head-office ones; the location's code in any case.
std::vector<const Notam*> notamsFor(std::string_view location);
std::vector<const Notam*> headOfficeNotams();

const Notam* findNotam(std::string_view key);

}  // namespace sim
