#include "members.h"

#include <ktpnaips/briefing/briefing_request.h>
#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/core/abstract_request.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/response.h>

namespace ktpnaips::component {
namespace {

class NAIPSConfigObject final : public Object<NAIPSConfig, _NAIPSConfig> {
 public:
  using Object::Object;
  KTP_PROPERTY(Mode)
  KTP_PROPERTY(UserName)
  KTP_PROPERTY(Password)
  KTP_PROPERTY(NewFPLFormat)
  KTP_PROPERTY(UseProxy)
  KTP_PROPERTY(DisableICAO)
};
KTP_OFFER(NAIPSConfig);

class AbstractRequestObject final : public PartObject<AbstractRequest, _AbstractRequest> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(User)
  KTP_PROPERTY(Password)
  KTP_PROPERTY(Scope)
  KTP_PROPERTY(Source)
  KTP_PROPERTY(ElementName)
};
KTP_OFFER(AbstractRequest);

class BriefingRequestObject final : public PartObject<BriefingRequest, _BriefingRequest> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(From)
  KTP_PROPERTY(Till)
  KTP_PROPERTY(Duration)
  STDMETHODIMP submit(_BriefingResponse** response) override {
    return answer(response, [this] { return object().submit(); });
  }
};
KTP_OFFER(BriefingRequest);

}  // namespace
}  // namespace ktpnaips::component
