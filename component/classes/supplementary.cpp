#include "members.h"

#include <ktpnaips/notification/icao_suppl_info.h>
#include <ktpnaips/notification/sar_time_info.h>

namespace ktpnaips::component {
namespace {

class ICAOSupplInfoObject final
    : public WithFlagOperation<PartObject<ICAOSupplInfo, _ICAOSupplInfo>> {
 public:
  using WithFlagOperation::WithFlagOperation;
  KTP_PROPERTY(Endurance)
  KTP_PROPERTY(POBTBA)
  KTP_PROPERTY(POB)
  KTP_PROPERTY(DinghyCount)
  KTP_PROPERTY(DinghyCapacity)
  KTP_PROPERTY(DinghyCovered)
  KTP_PROPERTY(DinghyColour)
  KTP_PROPERTY(AircraftColour)
  KTP_PROPERTY(Remarks)
  KTP_REFERENCE(Pilot)
};
KTP_OFFER(ICAOSupplInfo);

class PilotContactInfoObject final : public PartObject<PilotContactInfo, _PilotContactInfo> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(Name)
  KTP_PROPERTY(Phone)
};
KTP_OFFER(PilotContactInfo);

class SarTimeInfoObject final : public PartObject<SarTimeInfo, _SarTimeInfo> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(Time)
  KTP_PROPERTY(TBA)
  KTP_PROPERTY(ATSUnit)
  KTP_PROPERTY(EndPoint)
  KTP_PROPERTY(Location)
};
KTP_OFFER(SarTimeInfo);

}  // namespace
}  // namespace ktpnaips::component
