#pragma once

#include <string>

namespace ktpnaips {

/// Where the NAIPS services stand. The defaults are set when the library is built.
struct Deployment {
  Deployment();

  std::wstring developerHost;    ///< mode 0, over HTTP; ":8080" is appended
  std::wstring productionHost;   ///< mode 1, over HTTPS
  std::wstring testHost;         ///< mode 2, over HTTPS
  std::wstring proxyHost;        ///< mode 1 with `NAIPSConfig::UseProxy`, over HTTP
  std::wstring schemaNamespace;  ///< URI of the NAIPS schema; its path ends in "/naips/xsd"

  /// "address:port" to which every TCP connection goes, directly, whatever the host, scheme and
  /// proxy settings say: for gateways, tunnels and tests. URLs, Host headers and certificate
  /// checks stay as they are (on Windows the TLS name is the address's). Default: empty, none.
  std::wstring connectTo;

  /// A file of trusted certificate issuers (PEM) in place of the system's. Has no effect on
  /// Windows. Default: empty, the system's.
  std::wstring caFile;

  /// The values in use, for the whole process.
  static const Deployment& current();
  /// Replaces the values in use. Call it before the process's first request: requests under way
  /// on other threads read them unguarded.
  static void use(Deployment deployment);
};

}  // namespace ktpnaips
