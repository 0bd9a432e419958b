#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/flag_word.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/notification/icao_suppl_info.h>
#include <ktpnaips/notification/sar_time_info.h>
#include <ktpnaips/notification/stage_list.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips {

namespace rule {

/// The numbers and the words TBA and TBAN in the text, upper-cased, separated by single spaces;
/// everything else is dropped.
struct PersonsOnBoard {
  static std::wstring apply(std::wstring_view value);
};

}  // namespace rule

/// One stage of a SARTime notification. Texts are trimmed, upper-cased and their inner spaces made
/// single; nothing is refused.
class SARTimeFlightNotifStage : public IAppendable {
 public:
  SARTimeFlightNotifStage();

  /// Alternate destination; sent when not empty. Default "".
  Property<std::wstring, rule::Collapsed> AltDestination;

  Property<std::wstring, rule::Collapsed> Depart{L"UNKNOWN"};       ///< default "UNKNOWN"
  Property<std::wstring, rule::Collapsed> Destination{L"UNKNOWN"};  ///< default "UNKNOWN"

  /// Estimated time of departure, UTC; sent as given. Default: the local clock time at which the
  /// stage was created.
  Property<DateTime> ETD;

  /// Appends a place that the stage passes; a blank one is ignored.
  void Add(std::wstring_view location);

  /// Fills the stage element. An unexpected failure is reported; what was appended before it stays.
  void appendTo(const xml::Node& stage, std::wstring_view namespaceUri) const override;

 private:
  std::vector<std::wstring> locations_;
};

/// A SARTime notification: the simple, domestic alternative to a flight plan; its stages are sent
/// in the order of `Add`. Texts are trimmed, upper-cased and their inner spaces made single.
///
/// Flags: radios 0 VHF, 1 UHF, 2 ELT on 406 MHz (set by default).
class SARTimeFlightNotif : public IAppendable,
                           public FlagWord,
                           public StageList<SARTimeFlightNotifStage> {
 public:
  SARTimeFlightNotif();

  /// Aircraft identification; an empty one stays empty. Default "NOSEND".
  Property<std::wstring, rule::Collapsed> Aircraft{L"NOSEND"};

  Property<std::wstring, rule::Collapsed> AircraftType;  ///< default ""
  Property<std::wstring, rule::Collapsed> Remarks;       ///< sent when not empty; default ""

  /// Minutes; sent when greater than 0. Negative numbers are refused. Default 0.
  Property<std::int16_t, rule::AtLeast<0>> Endurance;

  /// Persons on board: what a text holds of numbers and the words TBA and TBAN. Default "".
  Property<std::wstring, rule::PersonsOnBoard> POB;

  /// The pilot; with no object an empty element is sent. Default: an empty `PilotContactInfo`.
  Property<std::shared_ptr<PilotContactInfo>> Pilot;

  /// When search and rescue starts; with no object an empty element is sent. Default: a new object,
  /// to be advised.
  Property<std::shared_ptr<ktpnaips::SarTimeInfo>> SarTimeInfo;

  /// Fills the notification element. An unexpected failure is reported; what was appended before it
  /// stays.
  void appendTo(const xml::Node& notification, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
