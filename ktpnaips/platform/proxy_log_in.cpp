#include <ktpnaips/platform/lasting.h>
#include <ktpnaips/platform/proxy_account.h>
#include <ktpnaips/platform/proxy_log_in.h>

#include <memory>
#include <mutex>
#include <utility>

namespace ktpnaips {

namespace {

struct InstalledLogIn {
  std::mutex mutex;
  std::shared_ptr<const ProxyLogIn> ask;  // shared, for one that is replaced while it asks
};

InstalledLogIn& installedLogIn() {
  static platform::Lasting<InstalledLogIn> installed;
  return *installed;
}

std::shared_ptr<const ProxyLogIn> currentLogIn() {
  InstalledLogIn& installed = installedLogIn();
  const std::lock_guard lock(installed.mutex);
  return installed.ask;
}

}  // namespace

void setProxyLogIn(ProxyLogIn logIn) {
  auto ask = logIn ? std::make_shared<const ProxyLogIn>(std::move(logIn)) : nullptr;
  InstalledLogIn& installed = installedLogIn();
  const std::lock_guard lock(installed.mutex);
  std::swap(installed.ask, ask);
}

namespace http {

bool hasProxyLogIn() {
  return currentLogIn() != nullptr;
}

std::optional<ProxyCredentials> askForProxyAccount(std::wstring_view host) {
  const std::shared_ptr<const ProxyLogIn> ask = currentLogIn();
  return ask ? (*ask)(host) : std::nullopt;
}

}  // namespace http

}  // namespace ktpnaips
