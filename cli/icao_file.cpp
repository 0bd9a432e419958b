#include "cli/notification_files.h"
#include "cli/notification_keys.h"

namespace cli {

using Notif = ktpnaips::ICAOFlightNotif;
using Other = ktpnaips::ICAOOtherInfo;
using Route = ktpnaips::ICAORoute;
using Segment = ktpnaips::ICAORouteSegment;
using Stage = ktpnaips::ICAOFlightNotifStage;
using Suppl = ktpnaips::ICAOSupplInfo;

template <>
struct Keys<Segment> {
  static constexpr Key<Segment> all[] = {
      {"NewSpeed", set<&Segment::NewSpeed>},     {"NewLevel", set<&Segment::NewLevel>},
      {"ATSRouteId", set<&Segment::ATSRouteId>}, {"NewRules", set<&Segment::NewRules>},
      {"Waypoint", set<&Segment::Waypoint>},     {"CCLevel", set<&Segment::CCLevel>},
  };
};

template <>
struct Keys<Route> {
  static constexpr Key<Route> all[] = {{"Speed", set<&Route::Speed>},
                                       {"Level", set<&Route::Level>},
                                       {"Segments", addEach<&Route::Add>}};
};

template <>
struct Keys<Other> {
  static constexpr Key<Other> all[] = {
      {"EET", set<&Other::EET>},   {"RIF", set<&Other::RIF>},   {"SEL", set<&Other::SEL>},
      {"OPR", set<&Other::OPR>},   {"STS", set<&Other::STS>},   {"PER", set<&Other::PER>},
      {"COM", set<&Other::COM>},   {"NAV", set<&Other::NAV>},   {"DAT", set<&Other::DAT>},
      {"DEP", set<&Other::DEP>},   {"Dest", set<&Other::Dest>}, {"ALTN", set<&Other::ALTN>},
      {"RALT", set<&Other::RALT>}, {"Code", set<&Other::Code>}, {"RMK", set<&Other::RMK>},
      {"TYP", set<&Other::TYP>},   {"DLA", set<&Other::DLA>},   {"PBN", set<&Other::PBN>},
      {"SUR", set<&Other::SUR>},   {"ORGN", set<&Other::ORGN>}, {"TALT", set<&Other::TALT>},
  };
};

template <>
struct Keys<Suppl> {
  static constexpr Key<Suppl> all[] = {
      {"Endurance", set<&Suppl::Endurance>},
      {"POBTBA", set<&Suppl::POBTBA>},
      {"POB", set<&Suppl::POB>},
      {"flags", flags<Suppl>},
      {"DinghyCount", set<&Suppl::DinghyCount>},
      {"DinghyCapacity", set<&Suppl::DinghyCapacity>},
      {"DinghyCovered", set<&Suppl::DinghyCovered>},
      {"DinghyColour", set<&Suppl::DinghyColour>},
      {"AircraftColour", set<&Suppl::AircraftColour>},
      {"Remarks", set<&Suppl::Remarks>},
      {"Pilot", set<&Suppl::Pilot>},
  };
};

namespace {

void setDepart(Stage& stage, const FileValue& value) {
  stage.Depart(value.text());
}

}  // namespace

template <>
struct Keys<Stage> {
  static constexpr Key<Stage> all[] = {
      {"Registration", set<&Stage::Registration>},
      {"AltDestination", set<&Stage::AltDestination>},
      {"Aircraft", set<&Stage::Aircraft>},
      {"FlightRules", set<&Stage::FlightRules>},
      {"TypeOfFlight", set<&Stage::TypeOfFlight>},
      {"AircraftType", set<&Stage::AircraftType>},
      {"WTC", set<&Stage::WTC>},
      {"NavComEquip", set<&Stage::NavComEquip>},
      {"SSREquip", set<&Stage::SSREquip>},
      {"Depart", setDepart},
      {"Destination", set<&Stage::Destination>},
      {"TEET", set<&Stage::TEET>},
      {"ETD", set<&Stage::ETD>},
      {"NumAircraft", set<&Stage::NumAircraft>},
      {"ADS", set<&Stage::ADS>},
      {"Route", set<&Stage::Route>},
      {"OtherInfo", set<&Stage::OtherInfo>},
      {"SARTime", set<&Stage::SARTime>},
      {"SupplInfo", set<&Stage::SupplInfo>},
  };
};

template <>
struct Keys<Notif> {
  static constexpr Key<Notif> all[] = {{"Domestic", set<&Notif::Domestic>},
                                       {"Stages", addEach<&Notif::Add>}};
};

std::shared_ptr<Notif> readIcaoFile(const std::string& file) {
  return readObject<Notif>(file);
}

}  // namespace cli
