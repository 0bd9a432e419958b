#pragma once

#include <ktpnaips/platform/proxy_log_in.h>

#include <optional>
#include <string>
#include <string_view>

namespace ktpnaips::http {

/// A proxy as the environment names it.
struct Proxy {
  std::string host;
  std::string url;  ///< without an account
};

/// The proxy that libcurl takes from the environment for a scheme ("http" or "https"), if any.
std::optional<Proxy> environmentProxy(std::string_view scheme);

/// Asks whoever `setProxyLogIn` installed; nothing when nobody is, or who is asked gives up.
std::optional<ProxyCredentials> askForProxyAccount(std::string_view host);

/// A Proxy-Authorization header line for an account, without its line end.
std::string basicProxyAuthorization(const std::string& user, const std::string& password);

}  // namespace ktpnaips::http
