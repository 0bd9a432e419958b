#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/property.h>

#include <string>
#include <string_view>

namespace ktpnaips {

/// The other information of a stage (item 18): one text an indicator. Texts are trimmed,
/// upper-cased and their inner spaces made single; nothing is refused. Default "": not sent.
class ICAOOtherInfo : public IAppendable {
 public:
  Property<std::wstring, rule::Collapsed> EET;  ///< estimated elapsed times
  Property<std::wstring, rule::Collapsed> RIF;  ///< route to a revised destination
  Property<std::wstring, rule::Collapsed> SEL;  ///< SELCAL code
  Property<std::wstring, rule::Collapsed> OPR;  ///< operator

  /// Reasons for special handling. The new format sends the known reasons in the text, separated by
  /// spaces, even when there are none.
  Property<std::wstring, rule::Collapsed> STS;

  /// Performance category: the first character of what is set.
  Property<std::wstring, rule::CutTo<1>> PER;

  Property<std::wstring, rule::Collapsed> COM;   ///< communication
  Property<std::wstring, rule::Collapsed> NAV;   ///< navigation
  Property<std::wstring, rule::Collapsed> DAT;   ///< data link
  Property<std::wstring, rule::Collapsed> DEP;   ///< departure without designator
  Property<std::wstring, rule::Collapsed> Dest;  ///< destination without designator
  Property<std::wstring, rule::Collapsed> ALTN;  ///< alternate without designator
  Property<std::wstring, rule::Collapsed> RALT;  ///< en-route alternates
  Property<std::wstring, rule::Collapsed> Code;  ///< aircraft address
  Property<std::wstring, rule::Collapsed> RMK;   ///< remarks
  Property<std::wstring, rule::Collapsed> TYP;   ///< aircraft types without designator

  /// En-route delay; sent as "dle" in the new format, "dla" in the old.
  Property<std::wstring, rule::Collapsed> DLA;

  /// Performance-based navigation; sent in the new format only, as the known designators in the
  /// text, separated by spaces, even when there are none.
  Property<std::wstring, rule::Collapsed> PBN;

  Property<std::wstring, rule::Collapsed> SUR;   ///< surveillance; new format only
  Property<std::wstring, rule::Collapsed> ORGN;  ///< originator; new format only
  Property<std::wstring, rule::Collapsed> TALT;  ///< take-off alternate; new format only

  /// Fills the element of the other information, in the form that `NAIPSConfig::NewFPLFormat`
  /// chooses. An unexpected failure is reported; what was appended before it stays.
  void appendTo(const xml::Node& otherInfo, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
