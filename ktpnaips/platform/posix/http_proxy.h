#pragma once

#include <curl/curl.h>

#include <optional>
#include <string>
#include <string_view>

namespace ktpnaips::http {

/// An account for a proxy, and how it is shown to it.
struct ProxyAccount {
  std::string user;
  std::string password;
  unsigned long scheme = CURLAUTH_BASIC;
};

/// A proxy as the environment names it.
struct Proxy {
  std::string host;
  std::string url;  ///< without the account: libcurl shows it in what it says of failures
  bool speaksHttp = true;
  std::optional<ProxyAccount> account;
};

/// What the environment says about a proxy for a call.
struct ProxyChoice {
  std::optional<Proxy> proxy;  ///< none for a direct connection
  std::string brokenVariable;  ///< the one whose value is no address; or empty
};

/// The proxy for a scheme ("http" or "https") and a host, by the variables that libcurl reads.
ProxyChoice environmentProxy(std::string_view scheme, std::string_view host);

/// Whether a list as in `no_proxy` names the host: by its name or a domain above it, by its
/// address or a range ("10.0.0.0/8"), or, with "*", every host.
bool isExcepted(std::string_view host, std::string_view list);

}  // namespace ktpnaips::http
