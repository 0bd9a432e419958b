#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/flag_word.h>
#include <ktpnaips/core/property.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

/// How to reach the pilot. Texts are trimmed, upper-cased, their inner spaces made single, and cut
/// to a number of UTF-16 units.
class PilotContactInfo : public IAppendable {
 public:
  Property<std::wstring, rule::CutTo<20>> Name;   ///< cut to 20; default ""
  Property<std::wstring, rule::CutTo<19>> Phone;  ///< cut to 19; default ""

  /// Sets both as attributes of the pilot element. An unexpected failure is reported.
  void appendTo(const xml::Node& pilot, std::wstring_view namespaceUri) const override;
};

/// The supplementary information of a stage (item 19). Setters refuse silently: the old value
/// stays. Texts are trimmed, upper-cased, their inner spaces made single, and cut to a number of
/// UTF-16 units.
///
/// Flags: radios 0 UHF, 1 VHF, 2 ELT on 406 MHz (set by default); survival equipment 3 polar,
/// 4 desert, 5 maritime, 6 jungle, or in the domestic form (`NAIPSConfig::DisableICAO`) 7 first-aid
/// kit, 8 rations, 9 water; life jackets with 10 lights, 11 fluorescein, 12 UHF, 13 VHF.
class ICAOSupplInfo : public IAppendable, public FlagWord {
 public:
  ICAOSupplInfo();

  /// Minutes; sent when greater than 0. Negative numbers are refused. Default 0.
  Property<std::int16_t, rule::AtLeast<0>> Endurance;

  /// Whether the persons on board are to be advised; wins over `POB`. Default false.
  Property<bool> POBTBA;

  /// Persons on board; sent when greater than 0. Negative numbers are refused. Default 0.
  Property<std::int16_t, rule::AtLeast<0>> POB;

  /// Dinghies, 0 to 99; other numbers are refused. Default 0: nothing about dinghies is sent.
  Property<std::int16_t, rule::Within<0, 99>> DinghyCount;

  /// Persons that the dinghies hold, 0 to 999; other numbers are refused. Default 0.
  Property<std::int16_t, rule::Within<0, 999>> DinghyCapacity;

  Property<bool> DinghyCovered;  ///< default false

  Property<std::wstring, rule::CutTo<10>> DinghyColour{L"YELLOW"};  ///< cut to 10; default "YELLOW"

  /// Colour and markings of the aircraft, cut to 46; sent when not empty. Default "".
  Property<std::wstring, rule::CutTo<46>> AircraftColour;

  /// Cut to 134; sent when not empty. Default "".
  Property<std::wstring, rule::CutTo<134>> Remarks;

  /// The pilot; with no object an empty element is sent. Default: an empty `PilotContactInfo`.
  Property<std::shared_ptr<PilotContactInfo>> Pilot;

  /// Fills the element of the supplementary information. An unexpected failure is reported; what
  /// was appended before it stays.
  void appendTo(const xml::Node& supplInfo, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
