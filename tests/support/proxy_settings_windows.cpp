#include "tests/support/proxy_settings.h"

#include <windows.h>

#include <wininet.h>

#include <array>
#include <stdexcept>

#include "tests/support/wine.h"

namespace ktpnaips::test {

namespace {

std::string current;

/// The person's settings: later sessions take them.
void use(const std::string& wanted) {
  current = wanted;
  std::string address = wanted;
  std::string exceptions = "<-loopback>";
  std::array<INTERNET_PER_CONN_OPTIONA, 3> options{};
  options[0].dwOption = INTERNET_PER_CONN_FLAGS;
  options[0].Value.dwValue = address.empty() ? PROXY_TYPE_DIRECT : PROXY_TYPE_PROXY;
  options[1].dwOption = INTERNET_PER_CONN_PROXY_SERVER;
  options[1].Value.pszValue = address.data();
  options[2].dwOption = INTERNET_PER_CONN_PROXY_BYPASS;
  options[2].Value.pszValue = exceptions.data();
  INTERNET_PER_CONN_OPTION_LISTA list{};
  list.dwSize = sizeof list;
  list.dwOptionCount = static_cast<DWORD>(address.empty() ? 1 : options.size());
  list.pOptions = options.data();
  if (InternetSetOptionA(nullptr, INTERNET_OPTION_PER_CONNECTION_OPTION, &list, sizeof list) == 0)
    throw std::runtime_error("the proxy settings were not taken");
  InternetSetOptionA(nullptr, INTERNET_OPTION_SETTINGS_CHANGED, nullptr, 0);
  if (wineVersion() < 10) return;
  // It reads those once; the process's own it takes at any time.
  INTERNET_PROXY_INFO own{};
  own.dwAccessType = wanted.empty() ? INTERNET_OPEN_TYPE_DIRECT : INTERNET_OPEN_TYPE_PROXY;
  own.lpszProxy = address.c_str();
  own.lpszProxyBypass = exceptions.c_str();
  InternetSetOptionA(nullptr, INTERNET_OPTION_PROXY, &own, sizeof own);
}

}  // namespace

struct ScopedProxy::Saved {
  std::string outer;
};

ScopedProxy::ScopedProxy(const std::string& address)
    : saved_(std::make_unique<Saved>(Saved{current})) {
  use(address);
}

ScopedProxy::~ScopedProxy() {
  use(saved_->outer);
}

}  // namespace ktpnaips::test
