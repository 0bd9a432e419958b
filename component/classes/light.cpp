#include "members.h"

#include <ktpnaips/briefing/light.h>
#include <ktpnaips/briefing/raim.h>

namespace ktpnaips::component {
namespace {

class FirstLastLightRqsObject final : public RequestObject<FirstLastLightRqs, _FirstLastLightRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(ForDate)
  KTP_REFERENCE(Point)
  KTP_ACTION_1(setNamed)
  KTP_ACTION_2(setLatLon)
  KTP_ACTION_3(setBearingDistance)
};
KTP_OFFER(FirstLastLightRqs);

class FirstLastLightRspObject final : public ResponseObject<FirstLastLightRsp, _FirstLastLightRsp> {
 public:
  using ResponseObject::ResponseObject;
  KTP_READ(ForDate)
  KTP_READ(FirstLight)
  KTP_READ(LastLight)
};
KTP_OFFER(FirstLastLightRsp);

class RAIMRqsObject final : public RequestObject<RAIMRqs, _RAIMRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_ACTION_1(addLocation)
};
KTP_OFFER(RAIMRqs);

}  // namespace
}  // namespace ktpnaips::component
