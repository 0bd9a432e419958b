#include <ktpnaips/core/globals.h>
#include <ktpnaips/core/text_items.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/notification/designator_list.h>
#include <ktpnaips/notification/icao_other_info.h>

namespace ktpnaips {
namespace {

std::wstring stsStringToList(std::wstring_view text) {
  static const Pattern designator(
      L"ALTRV|ATFMX|FFR|FLTCK|HAZMAT|HEAD|HOSP|HUM|MARSA|MEDEVAC|NONRVSM|SAR|STATE");
  return designatorList(inClass(L"stsStringToList", L"ICAOOtherInfo"), designator, text);
}

std::wstring pbnStringToList(std::wstring_view text) {
  static const Pattern designator(L"[AL]1|B[1-6]|[CDO][1-4]|[ST][12]");
  return designatorList(inClass(L"pbnStringToList", L"ICAOOtherInfo"), designator, text);
}

using Info = ICAOOtherInfo;
using enum Sent;

constexpr TextItem<Info> newFormat[] = {
    {L"sts", textOf<&Info::STS>, unlessEmpty, stsStringToList},
    {L"pbn", textOf<&Info::PBN>, unlessEmpty, pbnStringToList},
    {L"nav", textOf<&Info::NAV>, unlessEmpty},
    {L"com", textOf<&Info::COM>, unlessEmpty},
    {L"dat", textOf<&Info::DAT>, unlessEmpty},
    {L"sur", textOf<&Info::SUR>, unlessEmpty},
    {L"dep", textOf<&Info::DEP>, unlessEmpty},
    {L"dest", textOf<&Info::Dest>, unlessEmpty},
    {L"eet", textOf<&Info::EET>, unlessEmpty},
    {L"sel", textOf<&Info::SEL>, unlessEmpty},
    {L"typ", textOf<&Info::TYP>, unlessEmpty},
    {L"code", textOf<&Info::Code>, unlessEmpty},
    {L"dle", textOf<&Info::DLA>, unlessEmpty},
    {L"opr", textOf<&Info::OPR>, unlessEmpty},
    {L"orgn", textOf<&Info::ORGN>, unlessEmpty},
    {L"per", textOf<&Info::PER>, unlessEmpty},
    {L"altn", textOf<&Info::ALTN>, unlessEmpty},
    {L"ralt", textOf<&Info::RALT>, unlessEmpty},
    {L"talt", textOf<&Info::TALT>, unlessEmpty},
    {L"rif", textOf<&Info::RIF>, unlessEmpty},
    {L"rmk", textOf<&Info::RMK>, unlessEmpty},
};

constexpr TextItem<Info> oldFormat[] = {
    {L"eet", textOf<&Info::EET>, unlessEmpty},   {L"rif", textOf<&Info::RIF>, unlessEmpty},
    {L"sel", textOf<&Info::SEL>, unlessEmpty},   {L"opr", textOf<&Info::OPR>, unlessEmpty},
    {L"sts", textOf<&Info::STS>, unlessEmpty},   {L"per", textOf<&Info::PER>, unlessEmpty},
    {L"com", textOf<&Info::COM>, unlessEmpty},   {L"nav", textOf<&Info::NAV>, unlessEmpty},
    {L"dat", textOf<&Info::DAT>, unlessEmpty},   {L"dep", textOf<&Info::DEP>, unlessEmpty},
    {L"dest", textOf<&Info::Dest>, unlessEmpty}, {L"altn", textOf<&Info::ALTN>, unlessEmpty},
    {L"ralt", textOf<&Info::RALT>, unlessEmpty}, {L"code", textOf<&Info::Code>, unlessEmpty},
    {L"rmk", textOf<&Info::RMK>, unlessEmpty},   {L"typ", textOf<&Info::TYP>, unlessEmpty},
    {L"dla", textOf<&Info::DLA>, unlessEmpty},
};

}  // namespace

void ICAOOtherInfo::appendTo(const xml::Node& otherInfo, std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"ICAOOtherInfo"), [&] {
    if (Globals::settings().newFPLFormat) {
      addItems(otherInfo, namespaceUri, *this, newFormat);
    } else {
      addItems(otherInfo, namespaceUri, *this, oldFormat);
    }
  });
}

}  // namespace ktpnaips
