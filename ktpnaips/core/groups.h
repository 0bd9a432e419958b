#pragma once

#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>

#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

/// A group to which the account belongs.
class GroupMemberInfo {
 public:
  Property<std::wstring> Name;  ///< default "", also when the answer gives none
  Property<bool> Manager;       ///< whether the account manages the group; default false
};

/// The groups of an account, in the order of the answer.
class GetGroupAffiliationRsp : public ResponseBase,
                               public OpenCollection<std::shared_ptr<GroupMemberInfo>> {
 private:
  void extractData() override;
};

/// Lists the groups of an account: the one set on `abstractReq`, or the configured one.
class GetGroupAffiliationRqs : public Request<GetGroupAffiliationRsp> {
 public:
  GetGroupAffiliationRqs();
};

/// Appends to a request the group on whose behalf it is made; nothing when `groupId` is empty.
void addGroupId(const xml::Node& request, std::wstring_view namespaceUri,
                std::wstring_view groupId);

}  // namespace ktpnaips
