#include "members.h"

#include <ktpnaips/briefing/notams.h>

namespace ktpnaips::component {
namespace {

class ViewNOTAMListForSPFIBRqsObject final
    : public RequestObject<ViewNOTAMListForSPFIBRqs, _ViewNOTAMListForSPFIBRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(SPFIBNo)
};
KTP_OFFER(ViewNOTAMListForSPFIBRqs);

class ViewNOTAMListForSPFIBRspObject final
    : public WithItems<ResponseObject<ViewNOTAMListForSPFIBRsp, _ViewNOTAMListForSPFIBRsp>> {
 public:
  using WithItems::WithItems;
  KTP_READ(SPFIBNumber)
};
KTP_OFFER(ViewNOTAMListForSPFIBRsp);

class RetrieveFullTextNotamRqsObject final
    : public RequestObject<RetrieveFullTextNotamRqs, _RetrieveFullTextNotamRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_READ(Count)
  KTP_ACTION_1(addKey)
};
KTP_OFFER(RetrieveFullTextNotamRqs);

class NotamBaseDescriptorObject final : public Object<NotamBaseDescriptor, _NotamBaseDescriptor> {
 public:
  using Object::Object;
  KTP_PROPERTY(NotamKey)
  KTP_PROPERTY(NotamId)
  KTP_PROPERTY(Location)
  KTP_PROPERTY(Summary)
};
KTP_OFFER(NotamBaseDescriptor);

}  // namespace
}  // namespace ktpnaips::component
