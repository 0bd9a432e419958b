#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "simulator/data/locations.h"
#include "simulator/data/noise.h"
#include "simulator/data/text.h"
#include "simulator/data/time.h"
#include "simulator/registry.h"

namespace sim::handlers {
namespace {

// Most places and days have none.
std::string outages(const std::string& code, TimePoint now, bool exclusion) {
  using namespace std::chrono;
  const TimePoint today = floor<days>(now);
  std::string text;
  for (int day = 0; day < 3; ++day) {
    const TimePoint start = today + days(day);
    const std::uint64_t seed =
        seedOf(code) ^ scramble(static_cast<std::uint64_t>(start.time_since_epoch().count()));
    if (pick(seed, exclusion ? 1 : 0, 0, 9) < (exclusion ? 3 : 1)) {
      const TimePoint from = start + minutes(pick(seed, 2, 0, 1400));
      const TimePoint till = from + minutes(pick(seed, 3, 4, 38));
      text += ' ' + dayHourMinute(from) + " TIL " + dayHourMinute(till) + '\n';
    }
  }
  return text;
}

std::string detection(const std::string& code, TimePoint now, bool exclusion) {
  const std::string kind = exclusion ? "FDE" : "FD";
  const std::string times = outages(code, now, exclusion);
  return std::string("FAULT DETECTION") + (exclusion ? " AND EXCLUSION\n" : "\n") +
         (times.empty() ? " NO GPS RAIM " + kind + " OUTAGES FOR NPA\n"
                        : times + " GPS RAIM " + kind + " UNAVBL FOR NPA\n");
}

std::string prediction(const std::string& code, TimePoint now) {
  return code + "\nTSO-C129 (AND EQUIVALENT)\n" + detection(code, now, false) +
         "TSO-C146A (AND EQUIVALENT)\n" + detection(code, now, false) + detection(code, now, true);
}

void raimPrediction(const Call& call, Element& answer) {
  const std::vector<std::string> codes = call.request.childTexts("loc");
  if (codes.empty()) {
    throw Refusal("No location was asked for");
  }
  std::string text = "GPS RAIM PREDICTION " + dayHourMinute(call.now) + '\n';
  for (const std::string& name : codes) {
    const std::string code = trimmedUpperCase(name);
    if (findLocation(code) == nullptr) {
      throw Refusal("Unknown location: " + name);
    }
    text += '\n' + prediction(code, call.now);
  }
  answer.add("content", text);
}

}  // namespace

void raim(Registry& registry, State&) {
  registry.add("raim-rqs", Endpoint::briefing, raimPrediction);
}

}  // namespace sim::handlers
