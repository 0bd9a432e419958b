#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/globals.h>
#include <ktpnaips/core/text_items.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/notification/designator_list.h>
#include <ktpnaips/notification/icao_notification.h>
#include <ktpnaips/platform/clock.h>

namespace ktpnaips {

using modBrevank::addAttribute;
using modBrevank::addElement;

namespace {

using Stage = ICAOFlightNotifStage;
using Item = TextItem<Stage>;

constexpr DesignatorLetters navCom[] = {
    {L"NSABCDFGHIKLORTUVWXYZ"}, {L"E", L'3'}, {L"J", L'7'}, {L"M", L'3'}, {L"P", L'9'}};

constexpr DesignatorLetters ssr[] = {{L"NLEHSIPXCA"}, {L"BUV", L'2'}, {L"DG", L'1'}};

std::wstring navComStringToList(std::wstring_view text) {
  return designatorList(
      inClass(L"navComStringToList", L"ICAOFlightNotifStage"),
      [](std::wstring_view rest) { return designatorLength(navCom, rest); }, text);
}

std::wstring ssrStringToList(std::wstring_view text) {
  return designatorList(
      inClass(L"ssrStringToList", L"ICAOFlightNotifStage"),
      [](std::wstring_view rest) { return designatorLength(ssr, rest); }, text);
}

std::wstring elapsedTime(const Stage& stage) {
  return Utils::minutesToDuration(stage.TEET());
}

constexpr Item flight[] = {
    {L"acid", textOf<&Stage::Aircraft>},     {L"frul", textOf<&Stage::FlightRules>},
    {L"ftyp", textOf<&Stage::TypeOfFlight>}, {L"num-acft", textOf<&Stage::NumAircraft>},
    {L"atyp", textOf<&Stage::AircraftType>}, {L"wtc", textOf<&Stage::WTC>},
};

constexpr Item newEquipment[] = {
    {L"nav-com-equip", textOf<&Stage::NavComEquip>, Sent::always, navComStringToList},
    {L"surv-equip", textOf<&Stage::SSREquip>, Sent::always, ssrStringToList},
};

constexpr Item times[] = {
    {L"etd", textOf<&Stage::ETD>},
    {L"ades", textOf<&Stage::Destination>},
    {L"teet", elapsedTime},
    {L"altn", textOf<&Stage::AltDestination>, Sent::unlessEmpty},
};

void addOldEquipment(const xml::Node& parent, std::wstring_view namespaceUri, const Stage& stage) {
  addElement(parent, L"nav-com-equip", namespaceUri, stage.NavComEquip());
  const xml::Node surveillance = addElement(parent, L"ssr-equip", namespaceUri);
  addAttribute(surveillance, L"ads", namespaceUri, modBrevank::boolean(stage.ADS()));
  addElement(surveillance, L"equip", namespaceUri, stage.SSREquip());
}

}  // namespace

std::wstring rule::AircraftId::apply(std::wstring_view value) {
  std::wstring id = Collapsed::apply(value);
  return id.empty() ? L"NOSEND" : id;
}

std::wstring rule::Equipment::apply(std::wstring_view value) {
  std::wstring designators = Cleaned::apply(value);
  std::erase(designators, L' ');
  return designators.empty() ? L"N" : designators;
}

ICAOFlightNotifStage::ICAOFlightNotifStage() : ETD(clock::now()) {}

std::wstring ICAOFlightNotifStage::Depart() const {
  return Utils::cleanString(depart_);
}

void ICAOFlightNotifStage::Depart(std::wstring_view value) {
  depart_ = value;
}

void ICAOFlightNotifStage::appendTo(const xml::Node& stage, std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"ICAOFlightNotifStage"), [&] {
    addItems(stage, namespaceUri, *this, flight);
    if (Globals::settings().newFPLFormat) {
      addItems(stage, namespaceUri, *this, newEquipment);
    } else {
      addOldEquipment(stage, namespaceUri, *this);
    }
    addElement(stage, L"adep", namespaceUri, depart_);
    addItems(stage, namespaceUri, *this, times);
    addPart(stage, L"route", namespaceUri, Route().get());
    addElement(stage, L"reg", namespaceUri, Registration());
    addPart(stage, L"other-info", namespaceUri, OtherInfo().get());
    if (SARTime()) addPart(stage, L"sartimeinfo", namespaceUri, SARTime().get());
    if (SupplInfo()) addPart(stage, L"suppl-info", namespaceUri, SupplInfo().get());
  });
}

void ICAOFlightNotif::appendTo(const xml::Node& notification,
                               std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"ICAOFlightNotification"), [&] {
    addElement(notification, L"domestic", namespaceUri, modBrevank::boolean(Domestic()));
    appendStages(notification, namespaceUri);
  });
}

}  // namespace ktpnaips
