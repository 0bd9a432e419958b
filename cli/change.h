#pragma once

#include <ktpnaips/core/password.h>
#include <ktpnaips/notification/filing.h>
#include <ktpnaips/spfib/spfib_requests.h>

namespace cli {

/// What a person is told of a request that changes something at the service, by its outcome.
struct Change {
  const char* done;  ///< where the answer itself cannot be shown
  const char* notSent;
  const char* refused;
  const char* inDoubt;  ///< and how to look
};

inline constexpr Change filing{"The notification was filed.", "The notification was not sent.",
                               "The notification was refused.",
                               "The notification may have been filed: look with \"naips flight "
                               "list\" before filing it again."};

inline constexpr Change newBulletin{
    "The bulletin was made.", "The bulletin was not asked for.", "The bulletin was refused.",
    "The bulletin may have been made: look with \"naips spfib list\" before asking for it again."};

inline constexpr Change newPassword{
    "The password was changed.", "The new password was not sent.", "The new password was refused.",
    "The password may have been changed: look with \"naips account login\" which one counts."};

/// What the request changes; nullptr for one that leaves everything as it is.
template <class Request>
constexpr const Change* changeBy(const Request&) {
  return nullptr;
}
constexpr const Change* changeBy(const ktpnaips::SubmitICAOFlightNotifRqs&) {
  return &filing;
}
constexpr const Change* changeBy(const ktpnaips::SubmitSARTimeNotifRqs&) {
  return &filing;
}
constexpr const Change* changeBy(const ktpnaips::SPFIBRqs&) {
  return &newBulletin;
}
constexpr const Change* changeBy(const ktpnaips::UpdateSPFIBRqs&) {
  return &newBulletin;
}
constexpr const Change* changeBy(const ktpnaips::ChangePasswordRqs&) {
  return &newPassword;
}

}  // namespace cli
