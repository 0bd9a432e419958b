#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/spfib/spfib_directory.h>

namespace ktpnaips {
namespace {

constexpr Operation activeBulletins{service::briefing, L"active-spfib-dir-rqs",
                                    L"active-spfib-dir-rqs", inClass(L"submit", L"ActiveSPFIBDir")};

}  // namespace

void ActiveSPFIBDirectoryRsp::extractData() {
  trapped(inClass(L"extractData", L"ActiveSPFIBDirRsp"), [&] {
    for (const xml::Node& node : Payload().selectAll("naips:spfib")) {
      const auto& bulletin = append(std::make_shared<SPFIBDescriptor>());
      readText(node, "naips:number", bulletin->Number);
      readText(node, "naips:acid", bulletin->Aircraft);
      readDateTime(node, "naips:dtg", bulletin->DTG);
    }
  });
}

ActiveSPFIBDirectoryRqs::ActiveSPFIBDirectoryRqs() : Request(activeBulletins) {}

void ActiveSPFIBDirectoryRqs::appendContent(const xml::Node& request,
                                            std::wstring_view namespaceUri) const {
  addGroupId(request, namespaceUri, GroupId());
}

}  // namespace ktpnaips
