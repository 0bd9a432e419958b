#include "tests/support/proxy_settings.h"

#include <optional>

#include "tests/support/scoped_environment.h"

namespace ktpnaips::test {

struct ScopedProxy::Saved {
  explicit Saved(const std::optional<std::string>& url)
      : http("http_proxy", url), https("https_proxy", url) {}

  ScopedEnvironment http;
  ScopedEnvironment https;
  ScopedEnvironment upperHttps{"HTTPS_PROXY", {}};
  ScopedEnvironment all{"all_proxy", {}};
  ScopedEnvironment upperAll{"ALL_PROXY", {}};
  ScopedEnvironment none{"no_proxy", {}};
  ScopedEnvironment upperNone{"NO_PROXY", {}};
};

ScopedProxy::ScopedProxy(const std::string& address)
    : saved_(std::make_unique<Saved>(address.empty() ? std::nullopt
                                                     : std::optional("http://" + address))) {}

ScopedProxy::~ScopedProxy() = default;

}  // namespace ktpnaips::test
