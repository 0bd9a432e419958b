#include "cli/bulletin_file.h"

#include "cli/request_keys.h"

namespace cli {

using ktpnaips::SPFIBRoute;
using ktpnaips::SPFIBSpec;
using Stage = ktpnaips::SPFIBStageSpec;

namespace {

void addPoints(SPFIBRoute& route, const FileValue& points) {
  for (const FileValue& point : points.elements()) {
    route.Add(valueOf<std::shared_ptr<ktpnaips::Point>>(point));
  }
}

/// As `set`, for a place that is given as text.
template <auto Place>
void setPlace(Stage& stage, const FileValue& value) {
  (stage.*Place)(value.text());
}

}  // namespace

template <>
struct Keys<SPFIBRoute> {
  static constexpr Key<SPFIBRoute> all[] = {{"RouteCode", set<&SPFIBRoute::RouteCode>},
                                            {"Points", addPoints}};
};

template <>
struct Keys<Stage> {
  static constexpr Key<Stage> all[] = {
      {"WeightCat", set<&Stage::WeightCat>},
      {"ETD", set<&Stage::ETD>},
      {"Departing", setPlace<&Stage::Departing>},
      {"Destination", setPlace<&Stage::Destination>},
      {"Level", set<&Stage::Level>},
      {"AltDestination", setPlace<&Stage::AltDestination>},
      {"AltLevel", set<&Stage::AltLevel>},
      {"Route", set<&Stage::Route>},
      {"AltRoute", set<&Stage::AltRoute>},
      {"AdditionalLocations", addEach<&Stage::addAdditionalLocation>},
      {"AdditionalAreas", addEach<&Stage::addAdditionalArea>},
  };
};

template <>
struct Keys<SPFIBSpec> {
  static constexpr Key<SPFIBSpec> all[] = {{"Aircraft", set<&SPFIBSpec::Aircraft>},
                                           {"TAS", set<&SPFIBSpec::TAS>},
                                           {"flags", flags<SPFIBSpec>},
                                           {"Stages", addEach<&SPFIBSpec::addStage>}};
};

std::shared_ptr<SPFIBSpec> readBulletinFile(const std::string& file) {
  return readObject<SPFIBSpec>(file);
}

}  // namespace cli
