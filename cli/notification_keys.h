#pragma once

#include "cli/request_keys.h"

#include <ktpnaips/notification/icao_suppl_info.h>
#include <ktpnaips/notification/sar_time_info.h>

/// The objects that both kinds of flight notification have.
namespace cli {

template <>
struct Keys<ktpnaips::PilotContactInfo> {
  using Pilot = ktpnaips::PilotContactInfo;
  static constexpr Key<Pilot> all[] = {{"Name", set<&Pilot::Name>}, {"Phone", set<&Pilot::Phone>}};
};

template <>
struct Keys<ktpnaips::SarTimeInfo> {
  using Info = ktpnaips::SarTimeInfo;
  static constexpr Key<Info> all[] = {{"Time", set<&Info::Time>},
                                      {"TBA", set<&Info::TBA>},
                                      {"ATSUnit", set<&Info::ATSUnit>},
                                      {"EndPoint", set<&Info::EndPoint>},
                                      {"Location", set<&Info::Location>}};
};

}  // namespace cli
