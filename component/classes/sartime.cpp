#include "members.h"

#include <ktpnaips/notification/sartime_notification.h>

namespace ktpnaips::component {
namespace {

class SARTimeFlightNotifObject final
    : public WithFlagOperation<PartObject<SARTimeFlightNotif, _SARTimeFlightNotif>> {
 public:
  using WithFlagOperation::WithFlagOperation;
  KTP_PROPERTY(Aircraft)
  KTP_PROPERTY(AircraftType)
  KTP_PROPERTY(Remarks)
  KTP_PROPERTY(Endurance)
  KTP_PROPERTY(POB)
  KTP_REFERENCE(Pilot)
  KTP_REFERENCE(SarTimeInfo)
  KTP_ACTION_1(Add)
};
KTP_OFFER(SARTimeFlightNotif);

class SARTimeFlightNotifStageObject final
    : public PartObject<SARTimeFlightNotifStage, _SARTimeFlightNotifStage> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(AltDestination)
  KTP_PROPERTY(Depart)
  KTP_PROPERTY(Destination)
  KTP_PROPERTY(ETD)
  KTP_ACTION_1(Add)
};
KTP_OFFER(SARTimeFlightNotifStage);

}  // namespace
}  // namespace ktpnaips::component
