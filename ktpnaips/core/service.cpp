#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/globals.h>
#include <ktpnaips/core/service.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace ktpnaips {
namespace {

constexpr std::array<std::wstring_view, 5> paths{L"/reference-service", L"/account-service",
                                                 L"/briefing-service",
                                                 L"/flight-notification-service", L"/met-service"};

std::wstring baseURL() {
  const Deployment& deployment = Deployment::current();
  const Globals::Settings& settings = Globals::settings();
  switch (settings.mode) {
    case 0:
      return L"http://" + deployment.developerHost + L":8080";
    case 1:
      return settings.useProxy ? L"http://" + deployment.proxyHost + L"/naips"
                               : L"https://" + deployment.productionHost + L"/naips";
    case 2:
      return L"https://" + deployment.testHost + L"/naips";
    default:
      return {};
  }
}

}  // namespace

std::wstring serviceURL(std::int32_t service) {
  std::wstring url = baseURL();
  if (service >= 0 && static_cast<std::size_t>(service) < paths.size()) {
    url += paths[static_cast<std::size_t>(service)];
  }
  return url;
}

}  // namespace ktpnaips
