#pragma once

#include <ktpnaips/platform/proxy_log_in.h>

#include <optional>
#include <string_view>

/// The transport's side of `setProxyLogIn`.
namespace ktpnaips::http {

/// Whether somebody was installed to ask for proxies' accounts.
bool hasProxyLogIn();

/// Asks whoever is; nothing when nobody is, or who is asked gives up.
std::optional<ProxyCredentials> askForProxyAccount(std::wstring_view host);

}  // namespace ktpnaips::http
