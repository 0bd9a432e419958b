#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/notification/notification_directory.h>

namespace ktpnaips {
namespace {

constexpr Operation directory{service::flightNotification, L"active-fn-dir-rqs",
                              L"active-fn-dir-rqs", inClass(L"submit", L"FlightNotificationDir")};

void read(const xml::Node& from, ActiveFlightNotifDetails& into) {
  readText(from, "naips:id", into.Id);
  readText(from, "naips:owner-id", into.OwnerId);
  readText(from, "naips:group-id", into.GroupId);
  withText(from, "naips:timestamp",
           [&](const std::wstring& text) { into.DTG(Utilities::convertISODateTime(text)); });
  readText(from, "naips:acid", into.Aircraft);
  readText(from, "naips:route", into.Route);
}

}  // namespace

ActiveFlightNotifDirRqs::ActiveFlightNotifDirRqs() : Request(directory) {}

void ActiveFlightNotifDirRqs::appendContent(const xml::Node& request,
                                            std::wstring_view namespaceUri) const {
  addGroupId(request, namespaceUri, GroupId());
  if (!Aircraft().empty()) modBrevank::addElement(request, L"acid", namespaceUri, Aircraft());
}

void ActiveFlightNotifDirRsp::Add(const std::shared_ptr<SPFIBDescriptor>& descriptor) {
  if (descriptor != nullptr) append(nullptr);
}

void ActiveFlightNotifDirRsp::extractData() {
  trapped(inClass(L"extractData", L"ActiveSPFIBDirRsp"), [&] {
    if (!Payload()) return;
    for (const auto& node : Payload().selectAll("naips:flight-notif")) {
      read(node, *append(std::make_shared<ActiveFlightNotifDetails>()));
    }
  });
}

}  // namespace ktpnaips
