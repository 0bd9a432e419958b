#pragma once

#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>
#include <ktpnaips/notification/icao_notification.h>
#include <ktpnaips/notification/sartime_notification.h>

#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

/// The flight-plan texts that the service made of an ICAO notification, in the order of the answer;
/// none while `Error`. Each further answer given to `ResponseDoc` appends its texts; a fault while
/// reading passes on.
class SubmitICAOFlightNotifRsp : public ResponseBase, public Collection<std::wstring> {
 private:
  void extractData() override;
};

/// The answer to a filed SARTime notification.
class SubmitSARTimeNotifRsp : public ResponseBase {
 public:
  /// The notification text; empty when none was returned and while `Error`. Default "".
  ReadOnly<std::wstring, SubmitSARTimeNotifRsp> NotifText;

 private:
  void extractData() override;
};

/// Files an ICAO flight notification. Its form follows `NAIPSConfig::NewFPLFormat` and
/// `NAIPSConfig::DisableICAO` as they are on the submitting thread.
class SubmitICAOFlightNotifRqs : public Request<SubmitICAOFlightNotifRsp> {
 public:
  SubmitICAOFlightNotifRqs();

  /// The flight plan; with no object an empty one is sent. Default: a new notification.
  Property<std::shared_ptr<ICAOFlightNotif>> Notification;

  /// Group on whose behalf the plan is filed, exactly as given; sent when not empty. Default "".
  Property<std::wstring> GroupId;

  /// Asks the service to ignore a mismatch between aircraft type and registration. Default false.
  Property<bool> IgnoreTypeMismatch;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

/// Files a SARTime notification.
class SubmitSARTimeNotifRqs : public Request<SubmitSARTimeNotifRsp> {
 public:
  SubmitSARTimeNotifRqs();

  /// The notification; with no object an empty one is sent. Default: a new notification.
  Property<std::shared_ptr<SARTimeFlightNotif>> Notification;

  /// Group on whose behalf it is filed, exactly as given; sent when not empty. Default "".
  Property<std::wstring> GroupId;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
