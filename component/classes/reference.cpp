#include "members.h"

#include <ktpnaips/core/response.h>
#include <ktpnaips/spfib/location_directory.h>
#include <ktpnaips/spfib/route_directory.h>

namespace ktpnaips::component {
namespace {

class RouteDirectoryRqsObject final : public RequestObject<RouteDirectoryRqs, _RouteDirectoryRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(DomesticOnly)
  KTP_PROPERTY(Depart)
  KTP_PROPERTY(Destination)
};
KTP_OFFER(RouteDirectoryRqs);

class RouteDirectoryRspObject final
    : public WithItems<ResponseObject<RouteDirectoryRsp, _RouteDirectoryRsp>> {
 public:
  using WithItems::WithItems;
  KTP_ACTION_1(Add)
};
KTP_OFFER(RouteDirectoryRsp);

class RouteSummaryObject final : public Object<RouteSummary, _RouteSummary> {
 public:
  using Object::Object;
  KTP_PROPERTY(Depart)
  KTP_PROPERTY(Destination)
  KTP_PROPERTY(RouteCode)
  KTP_PROPERTY(Description)
};
KTP_OFFER(RouteSummary);

class GetRouteRqsObject final : public RequestObject<GetRouteRqs, _GetRouteRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(Depart)
  KTP_PROPERTY(Code)
  KTP_PROPERTY(Destination)
};
KTP_OFFER(GetRouteRqs);

/// The answer of `GetRouteRqs`, which has no class of its own.
class PlainResponseObject final : public CommonResponseObject<ResponseBase, ::AbstractResponse> {
 public:
  using CommonResponseObject::CommonResponseObject;
};
const Received<PlainResponseObject> receivedResponse(L"AbstractResponse");

class LocAirspaceDirectoryRqsObject final
    : public RequestObject<LocAirspaceDirectoryRqs, _LocAirspaceDirectoryRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(PartialName)
};
KTP_OFFER(LocAirspaceDirectoryRqs);

class LocAirspaceDirectoryRspObject final
    : public WithItems<ResponseObject<LocAirspaceDirectoryRsp, _LocAirspaceDirectoryRsp>> {
 public:
  using WithItems::WithItems;
  KTP_ACTION_1(Add)
};
KTP_OFFER(LocAirspaceDirectoryRsp);

class LocAirspaceDetailsObject final : public Object<LocAirspaceDetails, _LocAirspaceDetails> {
 public:
  using Object::Object;
  KTP_PROPERTY(Key)
  KTP_PROPERTY(Name)
  KTP_REFERENCE(Coord)
  KTP_PROPERTY(Description)
};
KTP_OFFER(LocAirspaceDetails);

}  // namespace
}  // namespace ktpnaips::component
