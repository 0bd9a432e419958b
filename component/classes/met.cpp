#include "members.h"

#include <ktpnaips/spfib/general_met.h>
#include <ktpnaips/spfib/wind_temp_profile.h>

namespace ktpnaips::component {
namespace {

class WindTempProfileRqsObject final
    : public RequestObject<WindTempProfileRqs, _WindTempProfileRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(TAS)
  KTP_ACTION_1(addStage)
};
KTP_OFFER(WindTempProfileRqs);

class WindTempStageObject final : public PartObject<WindTempStage, _WindTempStage> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(ETD)
  KTP_PROPERTY(Depart)
  KTP_PROPERTY(Destination)
  KTP_PROPERTY(Route)
};
KTP_OFFER(WindTempStage);

class GeneralMETMessageDirRqsObject final
    : public RequestObject<GeneralMETMessageDirRqs, _GeneralMETMessageDirRqs> {
 public:
  using RequestObject::RequestObject;
};
KTP_OFFER(GeneralMETMessageDirRqs);

class GeneralMETMessageDirRspObject final
    : public ResponseObject<GeneralMETMessageDirRsp, _GeneralMETMessageDirRsp> {
 public:
  using ResponseObject::ResponseObject;
  KTP_READ(Count)
  KTP_READ_AT(Name)
  KTP_READ_AT(EntryType)
};
KTP_OFFER(GeneralMETMessageDirRsp);

class GetGeneralMETMessageRqsObject final
    : public RequestObject<GetGeneralMETMessageRqs, _GetGeneralMETMessageRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(Name)
  KTP_PROPERTY(MessageType)
};
KTP_OFFER(GetGeneralMETMessageRqs);

}  // namespace
}  // namespace ktpnaips::component
