#pragma once

#include <ktpnaips/spfib/wind_temp_profile.h>

#include <string>

namespace cli {

/// Gives the request what a request file holds. Throws `UsageError`.
void readWindFile(const std::string& file, ktpnaips::WindTempProfileRqs& request);

}  // namespace cli
