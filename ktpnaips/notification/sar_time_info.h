#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/property.h>

#include <string>
#include <string_view>

namespace ktpnaips {

/// When and where search and rescue starts unless the flight has reported. Texts are trimmed,
/// upper-cased and their inner spaces made single; nothing is refused.
class SarTimeInfo : public IAppendable {
 public:
  /// The time, UTC, sent as given unless `TBA`. Default 1970-01-01 00:00:00.
  Property<DateTime> Time{noDateTime};

  /// Whether the time is to be advised. Default true.
  Property<bool> TBA{true};

  Property<std::wstring, rule::Collapsed> ATSUnit;   ///< the unit that holds it; default ""
  Property<std::wstring, rule::Collapsed> EndPoint;  ///< sent when not empty; default ""
  Property<std::wstring, rule::Collapsed> Location;  ///< default ""

  /// Fills the element that holds the time. An unexpected failure is reported; what was appended
  /// before it stays.
  void appendTo(const xml::Node& sarTime, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
