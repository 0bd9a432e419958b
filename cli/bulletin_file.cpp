#include "cli/bulletin_file.h"

#include "cli/request_keys.h"

namespace cli {

using ktpnaips::SPFIBRoute;
using ktpnaips::SPFIBSpec;
using BulletinStage = ktpnaips::SPFIBStageSpec;

namespace {

void addPoints(SPFIBRoute& route, const FileValue& points) {
  for (const FileValue& point : points.elements()) {
    route.Add(valueOf<std::shared_ptr<ktpnaips::Point>>(point));
  }
}

/// As `set`, for a place that is given as text.
template <auto Place>
void setPlace(BulletinStage& stage, const FileValue& value) {
  (stage.*Place)(value.text());
}

}  // namespace

template <>
struct Keys<SPFIBRoute> {
  static constexpr Key<SPFIBRoute> all[] = {{"RouteCode", set<&SPFIBRoute::RouteCode>},
                                            {"Points", addPoints}};
};

template <>
struct Keys<BulletinStage> {
  static constexpr Key<BulletinStage> all[] = {
      {"WeightCat", set<&BulletinStage::WeightCat>},
      {"ETD", set<&BulletinStage::ETD>},
      {"Departing", setPlace<&BulletinStage::Departing>},
      {"Destination", setPlace<&BulletinStage::Destination>},
      {"Level", set<&BulletinStage::Level>},
      {"AltDestination", setPlace<&BulletinStage::AltDestination>},
      {"AltLevel", set<&BulletinStage::AltLevel>},
      {"Route", set<&BulletinStage::Route>},
      {"AltRoute", set<&BulletinStage::AltRoute>},
      {"AdditionalLocations", addEach<&BulletinStage::addAdditionalLocation>},
      {"AdditionalAreas", addEach<&BulletinStage::addAdditionalArea>},
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

std::shared_ptr<SPFIBSpec> readBulletin(const FileValue& content) {
  return valueOf<std::shared_ptr<SPFIBSpec>>(content);
}

}  // namespace cli
