#pragma once

#include <windows.h>

#include <wininet.h>

#include <ktpnaips/platform/proxy_account.h>

#include <string>

namespace ktpnaips::http {

/// Whether the request goes through a proxy.
bool isViaProxy(HINTERNET request);

/// Asks for the account of the session's proxy and sets it on the request, as the dialogue does;
/// false when it is not given. A proxy whose name is not known goes by `host`.
bool setProxyAccount(HINTERNET session, HINTERNET request, ProxyLogIns& logIns,
                     const std::string& host);

}  // namespace ktpnaips::http
