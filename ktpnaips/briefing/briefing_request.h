#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/property.h>

#include <cstdint>
#include <memory>
#include <string_view>

namespace ktpnaips {

class BriefingResponse;

/// The common part of briefing requests: the period of validity, or a duration from now.
class BriefingRequest : public IAppendable {
 public:
  /// The period, UTC. It is sent when both ends are set and `From` is earlier than `Till`. Default
  /// 1970-01-01 00:00:00: not set.
  Property<DateTime> From{noDateTime};
  Property<DateTime> Till{noDateTime};

  /// Hours; sent when from 1 to 47 and no valid period is set. Default 0.
  Property<std::int16_t> Duration;

  /// Appends "period" or "duration", or nothing, to the request element.
  void appendTo(const xml::Node& request, std::wstring_view namespaceUri) const override;

  /// Posts this part alone to the briefing service.
  std::shared_ptr<BriefingResponse> submit() const;

 private:
  [[nodiscard]] bool hasPeriod() const;
  [[nodiscard]] bool hasDuration() const;
};

}  // namespace ktpnaips
