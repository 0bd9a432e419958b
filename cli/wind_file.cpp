#include "cli/wind_file.h"

#include "cli/request_keys.h"

namespace cli {

using ktpnaips::WindTempProfileRqs;
using Stage = ktpnaips::WindTempStage;

template <>
struct Keys<Stage> {
  static constexpr Key<Stage> all[] = {{"ETD", set<&Stage::ETD>},
                                       {"Depart", set<&Stage::Depart>},
                                       {"Destination", set<&Stage::Destination>},
                                       {"Route", set<&Stage::Route>}};
};

template <>
struct Keys<WindTempProfileRqs> {
  static constexpr Key<WindTempProfileRqs> all[] = {
      {"TAS", set<&WindTempProfileRqs::TAS>}, {"Stages", addEach<&WindTempProfileRqs::addStage>}};
};

void readWindFile(const std::string& file, WindTempProfileRqs& request) {
  setMembers(request, RequestFile(file).content());
}

}  // namespace cli
