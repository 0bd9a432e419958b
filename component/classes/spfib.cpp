#include "members.h"

#include <ktpnaips/spfib/spfib_directory.h>
#include <ktpnaips/spfib/spfib_requests.h>

namespace ktpnaips::component {
namespace {

class SPFIBRqsObject final : public WithFlags<PeriodRequestObject<SPFIBRqs, _SPFIBRqs>> {
 public:
  using WithFlags::WithFlags;
  KTP_PROPERTY(Duration)
  KTP_REFERENCE(SPFIBSpec)
  KTP_PROPERTY(GroupId)
};
KTP_OFFER(SPFIBRqs);

class GetSPFIBRqsObject final : public RequestObject<GetSPFIBRqs, _GetSPFIBRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(Number)
};
KTP_OFFER(GetSPFIBRqs);

class GetSPFIBRspObject final : public ResponseObject<GetSPFIBRsp, _GetSPFIBRsp> {
 public:
  using ResponseObject::ResponseObject;
  KTP_READ(SPFIBSpec)
  KTP_READ(Duration)
};
KTP_OFFER(GetSPFIBRsp);

class UpdateSPFIBRqsObject final : public PeriodRequestObject<UpdateSPFIBRqs, _UpdateSPFIBRqs> {
 public:
  using PeriodRequestObject::PeriodRequestObject;
  KTP_PROPERTY(Duration)
  KTP_PROPERTY(SPFIBNumber)
  KTP_PROPERTY(StageCount)
};
KTP_OFFER(UpdateSPFIBRqs);

class ActiveSPFIBDirectoryRqsObject final
    : public RequestObject<ActiveSPFIBDirectoryRqs, _ActiveSPFIBDirectoryRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(GroupId)
};
KTP_OFFER(ActiveSPFIBDirectoryRqs);

class ActiveSPFIBDirectoryRspObject final
    : public WithItems<ResponseObject<ActiveSPFIBDirectoryRsp, _ActiveSPFIBDirectoryRsp>> {
 public:
  using WithItems::WithItems;
  KTP_ACTION_1(Add)
};
KTP_OFFER(ActiveSPFIBDirectoryRsp);

class SPFIBDescriptorObject final : public Object<SPFIBDescriptor, _SPFIBDescriptor> {
 public:
  using Object::Object;
  KTP_PROPERTY(Number)
  KTP_PROPERTY(Aircraft)
  KTP_PROPERTY(DTG)
};
KTP_OFFER(SPFIBDescriptor);

}  // namespace
}  // namespace ktpnaips::component
