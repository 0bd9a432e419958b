#include "cli/notification_files.h"
#include "cli/notification_keys.h"

namespace cli {

using ktpnaips::SARTimeFlightNotif;
using SarTimeStage = ktpnaips::SARTimeFlightNotifStage;

template <>
struct Keys<SarTimeStage> {
  static constexpr Key<SarTimeStage> all[] = {
      {"AltDestination", set<&SarTimeStage::AltDestination>},
      {"Depart", set<&SarTimeStage::Depart>},
      {"Destination", set<&SarTimeStage::Destination>},
      {"ETD", set<&SarTimeStage::ETD>},
      {"Locations", addEach<&SarTimeStage::Add>}};
};

template <>
struct Keys<SARTimeFlightNotif> {
  using Notif = SARTimeFlightNotif;
  static constexpr Key<Notif> all[] = {
      {"Aircraft", set<&Notif::Aircraft>}, {"AircraftType", set<&Notif::AircraftType>},
      {"Remarks", set<&Notif::Remarks>},   {"Endurance", set<&Notif::Endurance>},
      {"POB", set<&Notif::POB>},           {"flags", flags<Notif>},
      {"Pilot", set<&Notif::Pilot>},       {"SarTimeInfo", set<&Notif::SarTimeInfo>},
      {"Stages", addEach<&Notif::Add>},
  };
};

std::shared_ptr<SARTimeFlightNotif> readSarTimeFile(const std::string& file) {
  return readObject<SARTimeFlightNotif>(file);
}

}  // namespace cli
