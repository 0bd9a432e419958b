#include "cli/global_options.h"

#include "cli/paths.h"
#include "cli/secrets.h"
#include "cli/usage_error.h"

#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/platform/terminal.h>
#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <fstream>
#include <utility>

namespace cli {

using ktpnaips::text::fromUtf8;

namespace {

constexpr const char* accountGroup = "Account";
constexpr const char* serviceGroup = "Service";
constexpr const char* outputGroup = "Output";

void set(std::wstring& field, const std::optional<std::string>& value) {
  if (value) field = fromUtf8(*value);
}

}  // namespace

void GlobalOptions::addTo(CLI::App& app) {
  const auto option = [&](const char* group, const char* name, auto& value, const char* help) {
    return app.add_option(name, value, help)
        ->group(group)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  };
  const auto flag = [&](const char* group, const char* name, bool& value, const char* help) {
    app.add_flag(name, value, help)
        ->group(group)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  };

  option(accountGroup, "--user", user, "User name; else $NAIPS_USER, else the configuration file")
      ->type_name("NAME");
  option(accountGroup, "--password-file", passwordFile,
         "File whose first line is the password; else $NAIPS_PASSWORD, else asked for")
      ->type_name("FILE");
  option(accountGroup, "--request-user", requestUser, "User name of this request only")
      ->type_name("NAME");
  option(accountGroup, "--request-password-file", requestPasswordFile,
         "File whose first line is the password to --request-user")
      ->type_name("FILE");
  option(accountGroup, "--scope", scope, "Scope of the request")->type_name("TEXT");
  option(accountGroup, "--source", source, "Client program named to the service")
      ->type_name("TEXT");

  option(serviceGroup, "--mode", mode, "0 developer's host, 1 production (default), 2 test")
      ->type_name("N");
  flag(serviceGroup, "--use-proxy", useProxy, "Go through the relaying proxy host (mode 1)");
  flag(serviceGroup, "--new-fpl-format", newFplFormat,
       "File notifications in the newer flight-plan form");
  flag(serviceGroup, "--disable-icao", disableIcao, "Survival equipment in the domestic form");
  option(serviceGroup, "--host", host, "Host name of the endpoint that the mode selects")
      ->type_name("NAME");
  option(serviceGroup, "--connect-to", connectTo,
         "Open the TCP connection to this address, directly")
      ->type_name("ADDRESS:PORT");
  option(serviceGroup, "--ca-file", caFile,
         "Trusted certificate issuers (PEM); else $SSL_CERT_FILE, else the system's")
      ->type_name("FILE");
  option(serviceGroup, "--schema-namespace", schemaNamespace, "URI of the NAIPS schema namespace")
      ->type_name("URI");
  flag(serviceGroup, "--simulate", simulate, "Talk to a built-in simulated service");

  option(outputGroup, "--out", out, "Copy the files that the answer brought into this folder")
      ->type_name("DIR");
  flag(outputGroup, "--json", json, "Write one JSON object");
  flag(outputGroup, "--trace", trace, "With a failed answer, show the request as it was sent");
  flag(outputGroup, "--dry-run", dryRun, "Write the request document and send nothing");
  flag(outputGroup, "-q,--quiet", quiet, "No progress and remarks");
  app.add_flag("-v,--verbose", verbose,
               "Say what is being done; twice, show what is sent and received, too")
      ->group(outputGroup);
}

std::wstring& GlobalOptions::endpointHost(ktpnaips::Deployment& deployment) const {
  switch (mode) {
    case 0:
      return deployment.developerHost;
    case 2:
      return deployment.testHost;
    default:
      return useProxy ? deployment.proxyHost : deployment.productionHost;
  }
}

void GlobalOptions::apply() const {
  ktpnaips::NAIPSConfig config;
  config.Mode(mode);
  config.UseProxy(useProxy);
  config.NewFPLFormat(newFplFormat);
  config.DisableICAO(disableIcao);

  ktpnaips::Deployment deployment = ktpnaips::Deployment::current();
  set(endpointHost(deployment), host);
  set(deployment.connectTo, connectTo);
  set(deployment.caFile, caFile);
  set(deployment.schemaNamespace, schemaNamespace);
  ktpnaips::Deployment::use(std::move(deployment));
}

std::string passwordIn(const std::string& file) {
  std::ifstream stream(pathOf(file));
  std::string line;
  if (!stream || !std::getline(stream, line)) {
    throw UsageError(fmt::format("cannot read a password from \"{}\"", file));
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  conceal(line);
  return line;
}

}  // namespace cli
