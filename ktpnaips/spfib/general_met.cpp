#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/spfib/general_met.h>

namespace ktpnaips {

using modBrevank::addElement;

namespace {

constexpr Operation messageDirectory{service::briefing, L"general-met-dir-rqs",
                                     L"general-met-dir-rqs", inClass(L"submit", L"GeneralMetDir")};

constexpr Operation getMessage{service::briefing, L"general-met-brief-rqs",
                               L"general-met-brief-rqs", inClass(L"submit", L"GeneralMetRequest")};

}  // namespace

std::wstring GeneralMETMessageDirRsp::Name(std::int16_t index) const {
  return Item(index).Name;
}

std::wstring GeneralMETMessageDirRsp::EntryType(std::int16_t index) const {
  return Item(index).EntryType;
}

void GeneralMETMessageDirRsp::extractData() {
  trapped(inClass(L"extractData", L"GeneralMetDirRsp"), [&] {
    for (const xml::Node& message : Payload().selectAll("naips:msg")) {
      const xml::Node name = message.select("naips:name");
      const xml::Node type = message.select("naips:type");
      if (name && type) append({name.text(), type.text()});
    }
  });
}

GeneralMETMessageDirRqs::GeneralMETMessageDirRqs() : Request(messageDirectory) {}

GetGeneralMETMessageRqs::GetGeneralMETMessageRqs() : Request(getMessage) {}

void GetGeneralMETMessageRqs::appendContent(const xml::Node& request,
                                            std::wstring_view namespaceUri) const {
  addElement(request, L"name", namespaceUri, Name());
  addElement(request, L"type", namespaceUri, MessageType());
}

}  // namespace ktpnaips
