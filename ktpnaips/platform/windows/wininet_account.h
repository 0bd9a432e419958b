#pragma once

#include <windows.h>

#include <wininet.h>

#include <string>

namespace ktpnaips::http {

/// Asks for the account of the session's proxy, or of the host that asks like one, and sets it on
/// the request, as the dialogue does; false when it is not given.
bool setProxyAccount(HINTERNET session, HINTERNET request, const std::string& host);

}  // namespace ktpnaips::http
