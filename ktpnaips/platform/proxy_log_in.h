#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace ktpnaips {

/// A proxy's account, as a person gives it.
struct ProxyCredentials {
  std::wstring user;      ///< as the proxy knows it
  std::wstring password;  ///< to `user`
};

/// Asks a person for the account of the proxy with this host name; nothing means given up.
using ProxyLogIn = std::function<std::optional<ProxyCredentials>(std::wstring_view proxyHost)>;

/// Sets what asks for a proxy's account when a proxy answers 407; an empty function restores the
/// default: the system's dialogue on Windows, giving up at once elsewhere. For the whole process,
/// from any thread; the function is called on the thread that waits in `submit`.
void setProxyLogIn(ProxyLogIn logIn);

}  // namespace ktpnaips
