#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/flag_attributes.h>
#include <ktpnaips/core/globals.h>
#include <ktpnaips/core/text_items.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/notification/icao_suppl_info.h>

#include <span>

namespace ktpnaips {

using modBrevank::addAttribute;
using modBrevank::addElement;

namespace {

constexpr std::int32_t eltOnly = 4;

constexpr NamedFlag radios[] = {{0, L"uhf"}, {1, L"vhf"}, {2, L"elt-406-MHz"}};

constexpr NamedFlag icaoSurvival[] = {
    {3, L"polar"}, {4, L"desert"}, {5, L"maritime"}, {6, L"jungle"}};

constexpr NamedFlag domesticSurvival[] = {{7, L"first-aid"}, {8, L"rations"}, {9, L"water"}};

constexpr NamedFlag jackets[] = {{10, L"light"}, {11, L"fluor"}, {12, L"uhf"}, {13, L"vhf"}};

constexpr TextItem<ICAOSupplInfo> dinghies[] = {
    {L"number", textOf<&ICAOSupplInfo::DinghyCount>},
    {L"capacity", textOf<&ICAOSupplInfo::DinghyCapacity>},
    {L"covered", textOf<&ICAOSupplInfo::DinghyCovered>},
    {L"colour", textOf<&ICAOSupplInfo::DinghyColour>},
};

constexpr TextItem<ICAOSupplInfo> remarks[] = {
    {L"acft-col-mark", textOf<&ICAOSupplInfo::AircraftColour>, Sent::unlessEmpty},
    {L"rmk", textOf<&ICAOSupplInfo::Remarks>, Sent::unlessEmpty},
};

std::wstring personsOnBoard(const ICAOSupplInfo& info) {
  if (info.POBTBA()) return L"TBA";
  return info.POB() > 0 ? decimal(info.POB()) : L"";
}

std::wstring endurance(const ICAOSupplInfo& info) {
  return info.Endurance() > 0 ? Utils::minutesToDuration(info.Endurance()) : L"";
}

constexpr TextItem<ICAOSupplInfo> people[] = {
    {L"end", endurance, Sent::unlessEmpty},
    {L"pob", personsOnBoard, Sent::unlessEmpty},
};

}  // namespace

void PilotContactInfo::appendTo(const xml::Node& pilot, std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"PilotContactInfo"), [&] {
    addAttribute(pilot, L"name", namespaceUri, Name());
    addAttribute(pilot, L"phone", namespaceUri, Phone());
  });
}

ICAOSupplInfo::ICAOSupplInfo() : FlagWord(eltOnly), Pilot(std::make_shared<PilotContactInfo>()) {}

void ICAOSupplInfo::appendTo(const xml::Node& supplInfo, std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"ICAOSupplInfo"), [&] {
    addItems(supplInfo, namespaceUri, *this, people);
    addFlags(supplInfo, L"radios", namespaceUri, *this, radios);
    addFlags(supplInfo, L"survival", namespaceUri, *this,
             Globals::settings().disableICAO ? std::span<const NamedFlag>(domesticSurvival)
                                             : std::span<const NamedFlag>(icaoSurvival));
    addFlags(supplInfo, L"jackets", namespaceUri, *this, jackets);
    if (DinghyCount() >= 1) {
      addItems(addElement(supplInfo, L"dinghies", namespaceUri), namespaceUri, *this, dinghies);
    }
    addItems(supplInfo, namespaceUri, *this, remarks);
    addPart(supplInfo, L"pilot", namespaceUri, Pilot().get());
  });
}

}  // namespace ktpnaips
