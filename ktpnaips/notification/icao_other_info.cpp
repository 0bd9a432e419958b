#include <ktpnaips/core/globals.h>
#include <ktpnaips/core/text_items.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/notification/designator_list.h>
#include <ktpnaips/notification/icao_other_info.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace ktpnaips {
namespace {

constexpr std::wstring_view reasons[] = {L"ALTRV",   L"ATFMX", L"FFR",  L"FLTCK", L"HAZMAT",
                                         L"HEAD",    L"HOSP",  L"HUM",  L"MARSA", L"MEDEVAC",
                                         L"NONRVSM", L"SAR",   L"STATE"};

constexpr DesignatorLetters pbn[] = {{L"AL", L'1'}, {L"B", L'6'}, {L"CDO", L'4'}, {L"ST", L'2'}};

std::size_t reasonLength(std::wstring_view text) {
  const auto* const reason =
      std::ranges::find_if(reasons, [&](std::wstring_view each) { return text.starts_with(each); });
  return reason == std::end(reasons) ? 0 : reason->size();
}

std::wstring stsStringToList(std::wstring_view text) {
  return designatorList(inClass(L"stsStringToList", L"ICAOOtherInfo"), reasonLength, text);
}

std::wstring pbnStringToList(std::wstring_view text) {
  return designatorList(
      inClass(L"pbnStringToList", L"ICAOOtherInfo"),
      [](std::wstring_view rest) { return designatorLength(pbn, rest); }, text);
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
