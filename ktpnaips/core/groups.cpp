#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/xml_building.h>

namespace ktpnaips {
namespace {

constexpr Operation groupAffiliation{service::account, L"get-group-affiliation-rqs",
                                     L"get-group-affiliation",
                                     inClass(L"submit", L"GetGroupAffiliationRsp")};

}  // namespace

GetGroupAffiliationRqs::GetGroupAffiliationRqs() : Request(groupAffiliation) {}

void GetGroupAffiliationRsp::extractData() {
  trapped(inClass(L"extractData", L"GetGroupAffiliationRsp"), [&] {
    const xml::Node payload = Payload();
    if (!payload) return;
    for (const xml::Node& group : payload.selectAll("naips:group")) {
      const auto info = std::make_shared<GroupMemberInfo>();
      readText(group, "naips:group-name", info->Name);
      const auto manager = group.attribute(L"manager");
      info->Manager(manager && isTrue(*manager));
      Add(info);
    }
  });
}

void addGroupId(const xml::Node& request, std::wstring_view namespaceUri,
                std::wstring_view groupId) {
  if (groupId.empty()) return;
  const xml::Node group = modBrevank::addElement(request, L"group-id", namespaceUri);
  modBrevank::addElement(group, L"group-name", namespaceUri, groupId);
}

}  // namespace ktpnaips
