#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/notification/icao_other_info.h>
#include <ktpnaips/notification/icao_route.h>
#include <ktpnaips/notification/icao_suppl_info.h>
#include <ktpnaips/notification/sar_time_info.h>
#include <ktpnaips/notification/stage_list.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

namespace rule {

/// As `Collapsed`; an empty text becomes "NOSEND".
struct AircraftId {
  static std::wstring apply(std::wstring_view value);
};

/// As `Cleaned`, with every space removed; an empty text becomes "N".
struct Equipment {
  static std::wstring apply(std::wstring_view value);
};

}  // namespace rule

/// One stage of an ICAO flight notification: a flight plan from departure to destination. Setters
/// refuse silently: the old value stays. Nothing is thrown.
class ICAOFlightNotifStage : public IAppendable {
 public:
  ICAOFlightNotifStage();

  /// Registration, trimmed and upper-cased. Default "".
  Property<std::wstring, rule::Cleaned> Registration;

  /// Alternate destination, trimmed and upper-cased; sent when not empty. Default "".
  Property<std::wstring, rule::Cleaned> AltDestination;

  /// Aircraft identification, trimmed, upper-cased, inner spaces made single; an empty one becomes
  /// "NOSEND", the default.
  Property<std::wstring, rule::AircraftId> Aircraft{L"NOSEND"};

  /// The first letter of what is set, upper-cased: I, V, Y or Z; another is refused. An empty or
  /// blank text is stored as empty. Default "V".
  Property<std::wstring, rule::FirstOf<L"IVYZ">> FlightRules{L"V"};

  /// As `FlightRules`, with the letters S, N, G, M and X. Default "G".
  Property<std::wstring, rule::FirstOf<L"SNGMX">> TypeOfFlight{L"G"};

  /// Type designator, trimmed, upper-cased, inner spaces made single; more than 4 UTF-16 units are
  /// refused. Default "ZZZZ".
  Property<std::wstring, rule::AtMost<4>> AircraftType{L"ZZZZ"};

  /// Wake turbulence category: as `FlightRules`, with the letters L, M, H and J. Default "L".
  Property<std::wstring, rule::FirstOf<L"LMHJ">> WTC{L"L"};

  /// Designators of item 10a, upper-cased, all spaces removed; an empty text becomes "N", the
  /// default. The new format sends the designators among them, separated by spaces.
  Property<std::wstring, rule::Equipment> NavComEquip{L"N"};

  /// Surveillance designators of item 10b, stored and sent as `NavComEquip`. Default "N".
  Property<std::wstring, rule::Equipment> SSREquip{L"N"};

  /// Departure. It is sent exactly as given and read back trimmed and upper-cased. Default
  /// "UNKNOWN".
  std::wstring Depart() const;
  void Depart(std::wstring_view value);

  /// Destination, trimmed and upper-cased. Default "UNKNOWN".
  Property<std::wstring, rule::Cleaned> Destination{L"UNKNOWN"};

  /// Total estimated elapsed time in minutes, from 1; 0 and less are refused. Default 0.
  Property<std::int16_t, rule::AtLeast<1>> TEET;

  /// Estimated time of departure, UTC; sent as given. Default: the local clock time at which the
  /// stage was created.
  Property<DateTime> ETD;

  /// 1 to 10; other numbers are refused. Default 1.
  Property<std::int16_t, rule::Within<1, 10>> NumAircraft{1};

  /// Whether automatic dependent surveillance is carried; sent in the old format only. Default
  /// false.
  Property<bool> ADS;

  /// Item 15. Default: none.
  Property<std::shared_ptr<ICAORoute>> Route;

  /// Item 18. Default: none.
  Property<std::shared_ptr<ICAOOtherInfo>> OtherInfo;

  /// The time at which search and rescue starts; sent when set. Default: none.
  Property<std::shared_ptr<SarTimeInfo>> SARTime;

  /// Item 19; sent when set. Default: none.
  Property<std::shared_ptr<ICAOSupplInfo>> SupplInfo;

  /// Fills the stage element, in the form that `NAIPSConfig::NewFPLFormat` chooses. An unexpected
  /// failure is reported; what was appended before it stays.
  void appendTo(const xml::Node& stage, std::wstring_view namespaceUri) const override;

 private:
  std::wstring depart_ = L"UNKNOWN";
};

/// An ICAO flight notification: a flight plan of one or more stages, sent in the order of `Add`.
class ICAOFlightNotif : public IAppendable, public StageList<ICAOFlightNotifStage> {
 public:
  /// Whether the flight is domestic. Default true.
  Property<bool> Domestic{true};

  /// Fills the notification element. An unexpected failure is reported; what was appended before it
  /// stays.
  void appendTo(const xml::Node& notification, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
