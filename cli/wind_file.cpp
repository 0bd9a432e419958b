#include "cli/wind_file.h"

#include "cli/request_keys.h"

namespace cli {

using ktpnaips::WindTempProfileRqs;
using WindStage = ktpnaips::WindTempStage;

template <>
struct Keys<WindStage> {
  static constexpr Key<WindStage> all[] = {{"ETD", set<&WindStage::ETD>},
                                           {"Depart", set<&WindStage::Depart>},
                                           {"Destination", set<&WindStage::Destination>},
                                           {"Route", set<&WindStage::Route>}};
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
