#pragma once

#include <ktpnaips/spfib/spfib_spec.h>

#include <memory>
#include <string>

namespace cli {

/// The specification of a bulletin that a request file holds. Throws `UsageError`.
std::shared_ptr<ktpnaips::SPFIBSpec> readBulletinFile(const std::string& file);

}  // namespace cli
