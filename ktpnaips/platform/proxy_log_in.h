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

  bool operator==(const ProxyCredentials&) const = default;  ///< the same account
};

/// Gives the account for the proxy with this host name, as a person does who is asked; nothing
/// means given up. `attempt` counts from 1 in each `submit`: from the second on the proxy has
/// refused what was given before. An account that was tried twice is not tried a third time.
using ProxyLogIn =
    std::function<std::optional<ProxyCredentials>(std::wstring_view proxyHost, int attempt)>;

/// Sets what gives a proxy's account when the proxy of a call answers 407; an empty function
/// restores the default: the system's dialogue on Windows, giving up at once elsewhere. A service
/// that answers 407 without a proxy is not given one. For the whole process, from any thread; the
/// function is called on the thread that waits in `submit`.
void setProxyLogIn(ProxyLogIn logIn);

}  // namespace ktpnaips
