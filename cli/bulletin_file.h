#pragma once

#include <ktpnaips/spfib/spfib_spec.h>

#include <memory>
#include <string>

namespace cli {

/// The bulletin that a request file asks for. Throws `UsageError`.
std::shared_ptr<ktpnaips::SPFIBSpec> readBulletinFile(const std::string& file);

}  // namespace cli
