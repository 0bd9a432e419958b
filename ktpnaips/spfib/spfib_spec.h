#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/flag_word.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/spfib/spfib_stage.h>

#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

/// The flight for which a pre-flight bulletin is asked, and what the bulletin holds: up to 10
/// stages, read through `Count` and `Item`. Flags: 0 domestic, 1 explained winds, 2 international
/// NOTAM series, 3 full text of NOTAMs, 4 charts, 5 mid-level SIGWX and grid-point charts, 6 charts
/// of the high variant instead of the low.
class SPFIBSpec : public IAppendable,
                  public FlagWord,
                  public Collection<std::shared_ptr<SPFIBStageSpec>> {
 public:
  /// Aircraft identification, sent as given. Default "NOSEND".
  Property<std::wstring> Aircraft{L"NOSEND"};

  /// True airspeed in flight-plan notation, sent as given. Default "N0100".
  Property<std::wstring> TAS{L"N0100"};

  /// Adds a stage, shared with the host; no object and an eleventh stage are dropped silently.
  void addStage(std::shared_ptr<SPFIBStageSpec> stage);

  /// Appends the elements of this object. A failure is reported and leaves what was written.
  void appendTo(const xml::Node& bulletin, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
