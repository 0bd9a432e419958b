#pragma once

#include "cli/request_file.h"

#include <ktpnaips/spfib/spfib_spec.h>

#include <memory>
#include <string>

namespace cli {

/// The bulletin that a request file asks for. Throws `UsageError`.
std::shared_ptr<ktpnaips::SPFIBSpec> readBulletinFile(const std::string& file);

/// The same, of the content of a file that has been read.
std::shared_ptr<ktpnaips::SPFIBSpec> readBulletin(const FileValue& content);

}  // namespace cli
