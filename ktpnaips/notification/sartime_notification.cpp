#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/flag_attributes.h>
#include <ktpnaips/core/text_items.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/notification/designator_list.h>
#include <ktpnaips/notification/sartime_notification.h>
#include <ktpnaips/platform/clock.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace ktpnaips {

using modBrevank::addElement;

namespace {

using Stage = SARTimeFlightNotifStage;

constexpr std::int32_t eltOnly = 4;

constexpr NamedFlag radios[] = {{0, L"VHF"}, {1, L"UHF"}, {2, L"elt-406-MHz"}};

constexpr TextItem<Stage> flight[] = {
    {L"adep", textOf<&Stage::Depart>},
    {L"etd", textOf<&Stage::ETD>},
    {L"ades", textOf<&Stage::Destination>},
    {L"alt", textOf<&Stage::AltDestination>, Sent::unlessEmpty},
};

/// Of a number, "TBAN" or "TBA".
std::size_t personsLength(std::wstring_view text) {
  const auto digits = std::min(text.find_first_not_of(L"0123456789"), text.size());
  if (digits > 0) return digits;
  return text.starts_with(L"TBAN") ? 4 : text.starts_with(L"TBA") ? 3 : 0;
}

}  // namespace

std::wstring rule::PersonsOnBoard::apply(std::wstring_view value) {
  return designatorList(inClass(L"sanitisePOB", L"SARTimeFlightNotif"), personsLength, value);
}

SARTimeFlightNotifStage::SARTimeFlightNotifStage() : ETD(clock::now()) {}

void SARTimeFlightNotifStage::Add(std::wstring_view location) {
  std::wstring cleaned = Utils::cleanString(location, true);
  if (!cleaned.empty()) locations_.push_back(std::move(cleaned));
}

void SARTimeFlightNotifStage::appendTo(const xml::Node& stage,
                                       std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"SARTimeNotificationStage"), [&] {
    addItems(stage, namespaceUri, *this, flight);
    modBrevank::addElements(stage, L"waypoint", namespaceUri, locations_);
  });
}

SARTimeFlightNotif::SARTimeFlightNotif()
    : FlagWord(eltOnly),
      Pilot(std::make_shared<PilotContactInfo>()),
      SarTimeInfo(std::make_shared<ktpnaips::SarTimeInfo>()) {}

void SARTimeFlightNotif::appendTo(const xml::Node& notification,
                                  std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"SARTimeNotification"), [&] {
    addElement(notification, L"acid", namespaceUri, Aircraft());
    addElement(notification, L"atyp", namespaceUri, AircraftType());
    appendStages(notification, namespaceUri);
    if (!Remarks().empty()) addElement(notification, L"rmk", namespaceUri, Remarks());
    addPart(notification, L"sar", namespaceUri, SarTimeInfo().get());
    if (Endurance() > 0) {
      addElement(notification, L"end", namespaceUri, Utils::minutesToDuration(Endurance()));
    }
    addElement(notification, L"pob", namespaceUri, POB());
    addFlags(notification, L"radios", namespaceUri, *this, radios);
    addPart(notification, L"pilot", namespaceUri, Pilot().get());
  });
}

}  // namespace ktpnaips
