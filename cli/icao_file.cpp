#include "cli/notification_files.h"
#include "cli/notification_keys.h"

namespace cli {

using Notif = ktpnaips::ICAOFlightNotif;
using Other = ktpnaips::ICAOOtherInfo;
using Route = ktpnaips::ICAORoute;
using Segment = ktpnaips::ICAORouteSegment;
using IcaoStage = ktpnaips::ICAOFlightNotifStage;
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

void setDepart(IcaoStage& stage, const FileValue& value) {
  stage.Depart(value.text());
}

}  // namespace

template <>
struct Keys<IcaoStage> {
  static constexpr Key<IcaoStage> all[] = {
      {"Registration", set<&IcaoStage::Registration>},
      {"AltDestination", set<&IcaoStage::AltDestination>},
      {"Aircraft", set<&IcaoStage::Aircraft>},
      {"FlightRules", set<&IcaoStage::FlightRules>},
      {"TypeOfFlight", set<&IcaoStage::TypeOfFlight>},
      {"AircraftType", set<&IcaoStage::AircraftType>},
      {"WTC", set<&IcaoStage::WTC>},
      {"NavComEquip", set<&IcaoStage::NavComEquip>},
      {"SSREquip", set<&IcaoStage::SSREquip>},
      {"Depart", setDepart},
      {"Destination", set<&IcaoStage::Destination>},
      {"TEET", set<&IcaoStage::TEET>},
      {"ETD", set<&IcaoStage::ETD>},
      {"NumAircraft", set<&IcaoStage::NumAircraft>},
      {"ADS", set<&IcaoStage::ADS>},
      {"Route", set<&IcaoStage::Route>},
      {"OtherInfo", set<&IcaoStage::OtherInfo>},
      {"SARTime", set<&IcaoStage::SARTime>},
      {"SupplInfo", set<&IcaoStage::SupplInfo>},
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
