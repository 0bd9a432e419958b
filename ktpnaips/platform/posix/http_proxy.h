#pragma once

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

/// A Proxy-Authorization header line for an account, without its line end.
std::string basicProxyAuthorization(const std::string& user, const std::string& password);

}  // namespace ktpnaips::http
