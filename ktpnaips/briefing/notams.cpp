#include <ktpnaips/briefing/notams.h>
#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/numbers.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/xml_building.h>

namespace ktpnaips {
namespace {

constexpr Operation notamList{service::briefing, L"view-notam-list-for-spfib-rqs",
                              L"view-notam-list-for-spfib-rqs",
                              inClass(L"submit", L"NotamListForSPFIBRequest")};

constexpr Operation notamTexts{service::briefing, L"retrieve-full-text-notam-rqs",
                               L"retrieve-full-text-notam-rqs",
                               inClass(L"submit", L"FullTextNotamRequest")};

/// A piece that is missing ends the reading and leaves the pieces before it.
void readId(const xml::Node& id, NotamBaseDescriptor& notam) {
  notam.Location(neededText(id, "naips:loc/naips:id"));
  const auto append = [&](const std::wstring& piece) { notam.NotamId(notam.NotamId() + piece); };
  append(neededText(id, "naips:number/naips:series-id"));
  append(neededText(id, "naips:number/naips:number"));
  append(L"/");
  const std::wstring year = neededText(id, "naips:number/naips:year");
  append(decimal(toInt16(leadingNumber(year)), 2));
}

}  // namespace

void ViewNOTAMListForSPFIBRsp::extractData() {
  trapped(inClass(L"extractData", L"NotamListForSPFIBRsp"), [&] {
    const xml::Node payload = Payload();
    readText(payload, "naips:spfib", SPFIBNumber.value);
    for (const xml::Node& node : payload.selectAll("naips:notam")) {
      const auto& notam = append(std::make_shared<NotamBaseDescriptor>());
      readText(node, "naips:notamKey", notam->NotamKey);
      if (const xml::Node id = node.select("naips:notamId")) readId(id, *notam);
      readText(node, "naips:summary", notam->Summary);
    }
  });
}

ViewNOTAMListForSPFIBRqs::ViewNOTAMListForSPFIBRqs() : Request(notamList) {}

void ViewNOTAMListForSPFIBRqs::appendContent(const xml::Node& request,
                                             std::wstring_view namespaceUri) const {
  modBrevank::addElement(request, L"number", namespaceUri, SPFIBNo());
}

RetrieveFullTextNotamRqs::RetrieveFullTextNotamRqs() : Request(notamTexts) {}

std::int16_t RetrieveFullTextNotamRqs::Count() const {
  return countOf(keys_.size());
}

void RetrieveFullTextNotamRqs::addKey(std::wstring_view key) {
  addCleanedWithin(keys_.max_size(), keys_, key);
}

void RetrieveFullTextNotamRqs::appendContent(const xml::Node& request,
                                             std::wstring_view namespaceUri) const {
  modBrevank::addElements(request, L"notamKey", namespaceUri, keys_);
}

}  // namespace ktpnaips
