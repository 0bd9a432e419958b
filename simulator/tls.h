#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "simulator/service.h"

namespace sim {

struct KeyPair {
  std::string certificate;  // PEM
  std::string key;          // PEM
};

// The simulator's own certificate authority, kept in the folder: made there on first use, and made
// anew when it cannot be read or is out of date. The key is readable by its owner alone, the
// certificate stands in "ca.pem" besides. Throws std::runtime_error when the folder cannot be used.
KeyPair authorityIn(const std::filesystem::path& folder);

std::filesystem::path authorityCertificateFile(const std::filesystem::path& folder);

// A server certificate for localhost, 127.0.0.1 and the names; signed so that Wine takes it too.
KeyPair issue(const KeyPair& authority, Certificate kind, std::span<const std::string> hostNames);

}  // namespace sim
