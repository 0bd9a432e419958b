#pragma once

#include <ktpnaips/notification/icao_notification.h>
#include <ktpnaips/notification/sartime_notification.h>

#include <memory>
#include <string>

/// The flight notifications that request files hold; no object for one that is null. They throw
/// `UsageError`.
namespace cli {

std::shared_ptr<ktpnaips::ICAOFlightNotif> readIcaoFile(const std::string& file);
std::shared_ptr<ktpnaips::SARTimeFlightNotif> readSarTimeFile(const std::string& file);

}  // namespace cli
