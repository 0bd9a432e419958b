#include "simulator/data/charts_catalogue.h"

namespace sim {

namespace {

using std::chrono::hours;

struct Row {
  std::string_view key;
  std::string_view name;
  std::string_view type;
  int lead;  // hours from the cycle to the validity
  bool low, high;
  Format format;
};

constexpr Row table[] = {
    {"80001", "MSLP ANALYSIS", "MSLP", 0, true, true, Format::png},
    {"80002", "MSLP PROGNOSIS 24HR", "MSLP", 24, true, true, Format::png},
    {"80003", "MSLP PROGNOSIS 48HR", "MSLP", 48, true, true, Format::png},
    {"80011", "SIGWX HIGH LEVEL FL250-FL630", "SIGWX", 12, true, true, Format::png},
    {"80012", "SIGWX MID LEVEL A100-FL250", "SIGWX", 12, true, true, Format::png},
    {"80013", "SIGWX HIGH LEVEL FL250-FL630 (PRINT)", "SIGWX", 18, false, true, Format::pdf},
    {"80021", "GPWT A050", "GPWT", 6, true, true, Format::png},
    {"80022", "GPWT FL100", "GPWT", 6, true, true, Format::png},
    {"80023", "GPWT FL185", "GPWT", 6, true, true, Format::png},
    {"80024", "GPWT FL340", "GPWT", 12, true, true, Format::png},
    {"80025", "GPWT FL390", "GPWT", 18, true, false, Format::png},
};

}  // namespace

std::vector<ChartEntry> chartCatalogue(TimePoint now) {
  const TimePoint day = std::chrono::floor<std::chrono::days>(now);
  const TimePoint cycle = day + hours{6 * ((now - day) / hours{6})};
  std::vector<ChartEntry> entries;
  for (const Row& row : table) {
    entries.push_back({std::string(row.key), std::string(row.name), std::string(row.type), cycle,
                       cycle + hours{row.lead}, row.low, row.high, row.format});
  }
  return entries;
}

std::string drawEntry(const ChartEntry& entry, bool high) {
  return drawChart({entry.name, entry.type, high, entry.valid}, entry.format);
}

}  // namespace sim
