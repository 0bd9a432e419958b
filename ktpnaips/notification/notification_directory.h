#pragma once

#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>

#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

class SPFIBDescriptor;

/// One active flight notification. Texts are kept as the service sent them, "" when it did not;
/// nothing is refused.
class ActiveFlightNotifDetails {
 public:
  Property<std::wstring> OwnerId;   ///< who filed it
  Property<std::wstring> Route;     ///< its route, as text
  Property<std::wstring> Aircraft;  ///< aircraft identification

  /// The service's time stamp, UTC: 1970-01-01 00:00:00 when it is unreadable. Default: the zero
  /// date-time.
  Property<DateTime> DTG{zeroDateTime};

  Property<std::wstring> GroupId;  ///< group on whose behalf it was filed
  Property<std::wstring> Id;       ///< its identification at the service
};

/// The active flight notifications, in the order of the answer. An unexpected failure while reading
/// is reported; the entries read before it stay. Each further answer given to `ResponseDoc` appends
/// its entries.
class ActiveFlightNotifDirRsp : public ResponseBase,
                                public Collection<std::shared_ptr<ActiveFlightNotifDetails>> {
 public:
  /// Appends an entry for the descriptor of a bulletin; no object is ignored. Such an entry counts
  /// and takes an index, but a descriptor is no `ActiveFlightNotifDetails`: `Item` and iteration
  /// give no object for it.
  void Add(const std::shared_ptr<SPFIBDescriptor>& descriptor);

 private:
  void extractData() override;
};

/// Asks for the active flight notifications.
class ActiveFlightNotifDirRqs : public Request<ActiveFlightNotifDirRsp> {
 public:
  ActiveFlightNotifDirRqs();

  /// Lists this aircraft only; trimmed, upper-cased, inner spaces made single; sent when not empty.
  /// Default "".
  Property<std::wstring, rule::Collapsed> Aircraft;

  /// Group on whose behalf to list, exactly as given; sent when not empty. Default "".
  Property<std::wstring> GroupId;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
