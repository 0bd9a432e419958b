#include "members.h"

#include <ktpnaips/notification/icao_notification.h>
#include <ktpnaips/notification/icao_other_info.h>
#include <ktpnaips/notification/icao_route.h>

namespace ktpnaips::component {
namespace {

class ICAOFlightNotifObject final : public PartObject<ICAOFlightNotif, _ICAOFlightNotif> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(Domestic)
  KTP_ACTION_1(Add)
};
KTP_OFFER(ICAOFlightNotif);

class ICAOFlightNotifStageObject final
    : public PartObject<ICAOFlightNotifStage, _ICAOFlightNotifStage> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(Registration)
  KTP_PROPERTY(AltDestination)
  KTP_PROPERTY(Aircraft)
  KTP_PROPERTY(FlightRules)
  KTP_PROPERTY(TypeOfFlight)
  KTP_PROPERTY(AircraftType)
  KTP_PROPERTY(WTC)
  KTP_PROPERTY(NavComEquip)
  KTP_PROPERTY(SSREquip)
  KTP_PROPERTY(Depart)
  KTP_PROPERTY(Destination)
  KTP_PROPERTY(TEET)
  KTP_PROPERTY(ETD)
  KTP_PROPERTY(NumAircraft)
  KTP_PROPERTY(ADS)
  KTP_REFERENCE(Route)
  KTP_REFERENCE(OtherInfo)
  KTP_REFERENCE(SARTime)
  KTP_REFERENCE(SupplInfo)
};
KTP_OFFER(ICAOFlightNotifStage);

class ICAORouteObject final : public PartObject<ICAORoute, _ICAORoute> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(Speed)
  KTP_PROPERTY(Level)
  KTP_ACTION_1(Add)
};
KTP_OFFER(ICAORoute);

class ICAORouteSegmentObject final : public PartObject<ICAORouteSegment, _ICAORouteSegment> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(NewSpeed)
  KTP_PROPERTY(NewLevel)
  KTP_PROPERTY(ATSRouteId)
  KTP_PROPERTY(NewRules)
  KTP_REFERENCE(Waypoint)
  KTP_PROPERTY(CCLevel)
  KTP_ACTION_1(setNamed)
  KTP_ACTION_2(setLatLon)
  KTP_ACTION_3(setBearingDistance)
};
KTP_OFFER(ICAORouteSegment);

class ICAOOtherInfoObject final : public PartObject<ICAOOtherInfo, _ICAOOtherInfo> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(EET)
  KTP_PROPERTY(RIF)
  KTP_PROPERTY(SEL)
  KTP_PROPERTY(OPR)
  KTP_PROPERTY(STS)
  KTP_PROPERTY(PER)
  KTP_PROPERTY(COM)
  KTP_PROPERTY(NAV)
  KTP_PROPERTY(DAT)
  KTP_PROPERTY(DEP)
  KTP_PROPERTY(Dest)
  KTP_PROPERTY(ALTN)
  KTP_PROPERTY(RALT)
  KTP_PROPERTY(Code)
  KTP_PROPERTY(RMK)
  KTP_PROPERTY(TYP)
  KTP_PROPERTY(DLA)
  KTP_PROPERTY(PBN)
  KTP_PROPERTY(SUR)
  KTP_PROPERTY(ORGN)
  KTP_PROPERTY(TALT)
};
KTP_OFFER(ICAOOtherInfo);

}  // namespace
}  // namespace ktpnaips::component
