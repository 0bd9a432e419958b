#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/text_items.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/notification/filing.h>

namespace ktpnaips {
namespace {

constexpr Operation fileIcao{service::flightNotification,
                             L"submit-icao-fn-rqs",
                             L"submit-icao-fn",
                             inClass(L"submit", L"SubmitICAOFlightNotifRqs"),
                             appendToOf(L"SubmitICAOFlightNotifRqs"),
                             Effect::changes};

constexpr Operation fileSarTime{service::flightNotification,
                                L"submit-sar-fn-rqs",
                                L"submit-sar-fn",
                                inClass(L"submit", L"SubmitSARTimeFlightNotif"),
                                appendToOf(L"SubmitSARTimeFlightNotification"),
                                Effect::changes};

void addNotification(const xml::Node& request, std::wstring_view namespaceUri,
                     const IAppendable* notification, std::wstring_view group) {
  addPart(request, L"flight-notif", namespaceUri, notification);
  addGroupId(request, namespaceUri, group);
}

}  // namespace

SubmitICAOFlightNotifRqs::SubmitICAOFlightNotifRqs()
    : Request(fileIcao), Notification(std::make_shared<ICAOFlightNotif>()) {}

void SubmitICAOFlightNotifRqs::appendContent(const xml::Node& request,
                                             std::wstring_view namespaceUri) const {
  modBrevank::addAttribute(request, L"ignore-atyp-reg", namespaceUri,
                           modBrevank::boolean(IgnoreTypeMismatch()));
  addNotification(request, namespaceUri, Notification().get(), GroupId());
}

void SubmitICAOFlightNotifRsp::extractData() {
  for (const auto& node : Payload().selectAll("naips:fpl-text")) append(node.text());
}

SubmitSARTimeNotifRqs::SubmitSARTimeNotifRqs()
    : Request(fileSarTime), Notification(std::make_shared<SARTimeFlightNotif>()) {}

void SubmitSARTimeNotifRqs::appendContent(const xml::Node& request,
                                          std::wstring_view namespaceUri) const {
  addNotification(request, namespaceUri, Notification().get(), GroupId());
}

void SubmitSARTimeNotifRsp::extractData() {
  readText(Payload(), "naips:notif-text", NotifText.value);
}

}  // namespace ktpnaips
