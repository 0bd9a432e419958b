#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/needed.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/spfib/spfib_requests.h>

namespace ktpnaips {

using modBrevank::addElement;

namespace {

constexpr Operation newBulletin{
    service::briefing,           L"spfib-rqs",   L"spfib", inClass(L"submit", L"SPFIBRequest"),
    appendToOf(L"SPFIBRequest"), Effect::changes};

constexpr Operation getBulletin{service::briefing, L"get-spfib-rqs", L"get-spfib-rqs",
                                inClass(L"submit", L"GetSPFIBRequest")};

constexpr Operation updateBulletin{service::briefing,
                                   L"update-spfib-rqs",
                                   L"update-spfib-rqs",
                                   inClass(L"submit", L"MetBriefRequest"),
                                   appendToOf(L"UpdateSPFIBRqs"),
                                   Effect::changes};

std::shared_ptr<SPFIBStageSpec> readStage(const xml::Node& from) {
  auto stage = std::make_shared<SPFIBStageSpec>();
  stage->Departing(neededText(from, "naips:adep"));
  stage->Destination(neededText(from, "naips:ades"));
  stage->ETD(Utilities::convertISODateTime(neededText(from, "naips:etd")));
  return stage;
}

}  // namespace

SPFIBRqs::SPFIBRqs() : PeriodRequest(newBulletin) {}

void SPFIBRqs::appendItems(const xml::Node& request, std::wstring_view namespaceUri) const {
  const std::wstring& schema = Deployment::current().schemaNamespace;
  if (Duration() > 0) {
    addElement(request, L"duration", schema, L"PT" + decimal(Duration()) + L'H');
  }
  addGroupId(request, namespaceUri, GroupId());
  const xml::Node bulletin = addElement(request, L"spfib", schema);
  needed(SPFIBSpec()).appendTo(bulletin, schema);
}

void GetSPFIBRsp::extractData() {
  trapped(inClass(L"extractData", L"GetSPFIBRsp"), [&] {
    const xml::Node payload = Payload();
    Duration.value = neededText(payload, "naips:duration");
    const xml::Node bulletin = payload.select("naips:spfib");
    SPFIBSpec.value = std::make_shared<ktpnaips::SPFIBSpec>();
    SPFIBSpec.value->TAS(neededText(bulletin, "naips:tas"));
    for (const xml::Node& stage : bulletin.selectAll("naips:stage")) {
      SPFIBSpec.value->addStage(readStage(stage));
    }
  });
}

GetSPFIBRqs::GetSPFIBRqs() : Request(getBulletin) {}

void GetSPFIBRqs::appendContent(const xml::Node& request, std::wstring_view namespaceUri) const {
  addElement(request, L"number", namespaceUri, Number());
}

UpdateSPFIBRqs::UpdateSPFIBRqs() : PeriodRequest(updateBulletin) {}

void UpdateSPFIBRqs::appendItems(const xml::Node& request, std::wstring_view) const {
  const std::wstring& schema = Deployment::current().schemaNamespace;
  if (Duration() > 0) addElement(request, L"duration", schema, decimal(Duration()));
  addElement(request, L"number", schema, SPFIBNumber());
  for (int stage = 1; stage <= StageCount(); ++stage) {
    modBrevank::addAttribute(addElement(request, L"stage", schema), L"include", schema,
                             modBrevank::boolean(true));
  }
}

}  // namespace ktpnaips
