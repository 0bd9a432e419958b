#include "members.h"

#include <ktpnaips/spfib/spfib_route.h>
#include <ktpnaips/spfib/spfib_spec.h>
#include <ktpnaips/spfib/spfib_stage.h>

namespace ktpnaips::component {
namespace {

class SPFIBRouteObject final : public WithForEach<PartObject<SPFIBRoute, _SPFIBRoute>> {
 public:
  using WithForEach::WithForEach;
  STDMETHODIMP Add(::Point* point, VARIANT key) override {
    return attempt([&] {
      if (isMissing(key)) return object().Add(argument(point));
      object().Add(argument(point), keyIn(key));
    });
  }
  STDMETHODIMP Remove(VARIANT index) override {
    return attempt([&] { IndexOrKey(index).with([&](auto which) { object().Remove(which); }); });
  }
  STDMETHODIMP get_Item(VARIANT index, ::Point** value) override {
    return answer(value, [&] {
      return IndexOrKey(index).with([&](auto which) { return object().Item(which); });
    });
  }
  KTP_READ(Count)
  KTP_ACTION(Clear)
  KTP_PROPERTY(RouteCode)
  KTP_ACTION_1(addNamed)
  KTP_ACTION_2(addLatLon)
  KTP_ACTION_3(addBearingDistance)
};
KTP_OFFER(SPFIBRoute);

class SPFIBStageSpecObject final : public PartObject<SPFIBStageSpec, _SPFIBStageSpec> {
 public:
  using PartObject::PartObject;
  KTP_PROPERTY(WeightCat)
  KTP_PROPERTY(ETD)
  KTP_PROPERTY(Departing)
  KTP_PROPERTY(Destination)
  KTP_PROPERTY(Level)
  KTP_PROPERTY(AltDestination)
  KTP_PROPERTY(AltLevel)
  KTP_REFERENCE(Route)
  KTP_REFERENCE(AltRoute)
  KTP_ACTION_1(addAdditionalLocation)
  KTP_ACTION_1(addAdditionalArea)
};
KTP_OFFER(SPFIBStageSpec);

class SPFIBSpecObject final : public WithItems<WithFlags<PartObject<SPFIBSpec, _SPFIBSpec>>> {
 public:
  using WithItems::WithItems;
  KTP_PROPERTY(Aircraft)
  KTP_PROPERTY(TAS)
  KTP_ACTION_1(addStage)
};
KTP_OFFER(SPFIBSpec);

}  // namespace
}  // namespace ktpnaips::component
