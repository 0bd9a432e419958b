#include <ktpnaips/platform/lasting.h>
#include <ktpnaips/platform/proxy_account.h>
#include <ktpnaips/platform/proxy_log_in.h>

#include <algorithm>
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

std::optional<ProxyCredentials> ProxyLogIns::next(std::wstring_view host) {
  constexpr auto mostTries = 2;
  const std::shared_ptr<const ProxyLogIn> ask = currentLogIn();
  if (!ask) return std::nullopt;
  auto account = (*ask)(host, static_cast<int>(given_.size()) + 1);
  if (!account || std::ranges::count(given_, *account) == mostTries) return std::nullopt;
  given_.push_back(*account);
  return account;
}

}  // namespace http

}  // namespace ktpnaips
