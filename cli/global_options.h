#pragma once

#include "cli/configuration_file.h"

#include <ktpnaips/core/deployment.h>

#include <CLI/App.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace cli {

/// What can be set before or after any command.
struct GlobalOptions {
  Configuration configuration;
  std::int32_t mode = 1;
  bool useProxy = false;
  bool newFplFormat = false;
  bool disableIcao = false;
  std::optional<std::string> user;
  std::optional<std::string> passwordFile;
  std::optional<std::string> requestUser;
  std::optional<std::string> requestPasswordFile;
  std::optional<std::string> scope;
  std::optional<std::string> source;
  std::optional<std::string> host;
  std::optional<std::string> connectTo;
  std::optional<std::string> caFile;
  std::optional<std::string> schemaNamespace;
  bool simulate = false;
  std::optional<std::string> out;
  bool json = false;
  bool trace = false;
  bool dryRun = false;
  bool quiet = false;
  int verbose = 0;  ///< 1 says what is being done, 2 shows the documents, too

  void addTo(CLI::App& app);

  /// The host name that the mode selects.
  std::wstring& endpointHost(ktpnaips::Deployment& deployment) const;

  /// Sets the library's configuration and deployment accordingly.
  void apply() const;
};

/// The first line of a file, which is concealed from now on. Throws `UsageError` when it cannot be
/// read.
std::string passwordIn(const std::string& file);

}  // namespace cli
