#include "members.h"

#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/password.h>

namespace ktpnaips::component {
namespace {

class AuthenticateRqsObject final : public RequestObject<AuthenticateRqs, _AuthenticateRqs> {
 public:
  using RequestObject::RequestObject;
};
KTP_OFFER(AuthenticateRqs);

class AuthenticateRspObject final : public ResponseObject<AuthenticateRsp, _AuthenticateRsp> {
 public:
  using ResponseObject::ResponseObject;
  KTP_READ(Name)
  KTP_READ(MOTD)
  KTP_READ(Email)
  KTP_READ(Scheduling)
  KTP_READ(AvfaxId)
};
KTP_OFFER(AuthenticateRsp);

class ChangePasswordRqsObject final : public RequestObject<ChangePasswordRqs, _ChangePasswordRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(NewPassword)
  KTP_PROPERTY(Email)
};
KTP_OFFER(ChangePasswordRqs);

class ChangePasswordRspObject final : public ResponseObject<ChangePasswordRsp, _ChangePasswordRsp> {
 public:
  using ResponseObject::ResponseObject;
};
KTP_OFFER(ChangePasswordRsp);

class GetGroupAffiliationRqsObject final
    : public RequestObject<GetGroupAffiliationRqs, _GetGroupAffiliationRqs> {
 public:
  using RequestObject::RequestObject;
};
KTP_OFFER(GetGroupAffiliationRqs);

class GetGroupAffiliationRspObject final
    : public WithItems<ResponseObject<GetGroupAffiliationRsp, _GetGroupAffiliationRsp>> {
 public:
  using WithItems::WithItems;
  KTP_ACTION_1(Add)
};
KTP_OFFER(GetGroupAffiliationRsp);

class GroupMemberInfoObject final : public Object<GroupMemberInfo, _GroupMemberInfo> {
 public:
  using Object::Object;
  KTP_PROPERTY(Name)
  KTP_PROPERTY(Manager)
};
KTP_OFFER(GroupMemberInfo);

}  // namespace
}  // namespace ktpnaips::component
