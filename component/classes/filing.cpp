#include "members.h"

#include <ktpnaips/notification/filing.h>
#include <ktpnaips/notification/notification_directory.h>
#include <ktpnaips/spfib/spfib_directory.h>

namespace ktpnaips::component {
namespace {

class SubmitICAOFlightNotifRqsObject final
    : public RequestObject<SubmitICAOFlightNotifRqs, _SubmitICAOFlightNotifRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_REFERENCE(Notification)
  KTP_PROPERTY(GroupId)
  KTP_PROPERTY(IgnoreTypeMismatch)
};
KTP_OFFER(SubmitICAOFlightNotifRqs);

class SubmitICAOFlightNotifRspObject final
    : public WithItems<ResponseObject<SubmitICAOFlightNotifRsp, _SubmitICAOFlightNotifRsp>> {
 public:
  using WithItems::WithItems;
};
KTP_OFFER(SubmitICAOFlightNotifRsp);

class SubmitSARTimeNotifRqsObject final
    : public RequestObject<SubmitSARTimeNotifRqs, _SubmitSARTimeNotifRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_REFERENCE(Notification)
  KTP_PROPERTY(GroupId)
};
KTP_OFFER(SubmitSARTimeNotifRqs);

class SubmitSARTimeNotifRspObject final
    : public ResponseObject<SubmitSARTimeNotifRsp, _SubmitSARTimeNotifRsp> {
 public:
  using ResponseObject::ResponseObject;
  KTP_READ(NotifText)
};
KTP_OFFER(SubmitSARTimeNotifRsp);

class ActiveFlightNotifDirRqsObject final
    : public RequestObject<ActiveFlightNotifDirRqs, _ActiveFlightNotifDirRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(Aircraft)
  KTP_PROPERTY(GroupId)
};
KTP_OFFER(ActiveFlightNotifDirRqs);

class ActiveFlightNotifDirRspObject final
    : public WithItems<ResponseObject<ActiveFlightNotifDirRsp, _ActiveFlightNotifDirRsp>> {
 public:
  using WithItems::WithItems;
  KTP_ACTION_1(Add)
};
KTP_OFFER(ActiveFlightNotifDirRsp);

class ActiveFlightNotifDetailsObject final
    : public Object<ActiveFlightNotifDetails, _ActiveFlightNotifDetails> {
 public:
  using Object::Object;
  KTP_PROPERTY(OwnerId)
  KTP_PROPERTY(Route)
  KTP_PROPERTY(Aircraft)
  KTP_PROPERTY(DTG)
  KTP_PROPERTY(GroupId)
  KTP_PROPERTY(Id)
};
KTP_OFFER(ActiveFlightNotifDetails);

}  // namespace
}  // namespace ktpnaips::component
