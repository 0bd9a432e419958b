#pragma once

#include <ktpnaips/platform/proxy_log_in.h>

#include <optional>
#include <string_view>
#include <vector>

/// The transport's side of `setProxyLogIn`.
namespace ktpnaips::http {

/// Whether somebody was installed to ask for proxies' accounts.
bool hasProxyLogIn();

/// The log-ins to a proxy in one exchange.
class ProxyLogIns {
 public:
  /// Calls the installed log-in; nothing when there is none, when it gives up, and when it gives an
  /// account for the third time.
  std::optional<ProxyCredentials> next(std::wstring_view host);

 private:
  std::vector<ProxyCredentials> given_;
};

}  // namespace ktpnaips::http
