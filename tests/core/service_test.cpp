#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/service.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

Deployment namedHosts() {
  Deployment deployment;
  deployment.developerHost = L"dev.test";
  deployment.productionHost = L"production.test";
  deployment.testHost = L"trial.test";
  deployment.proxyHost = L"relay.test";
  return deployment;
}

class ServiceUrl : public testing::Test {
 protected:
  NAIPSConfig config;

 private:
  test::FreshSettings settings_;
  test::ScopedDeployment deployment_{namedHosts()};
};

TEST_F(ServiceUrl, EndsInThePathOfTheService) {
  EXPECT_EQ(serviceURL(0), L"http://dev.test:8080/reference-service");
  EXPECT_EQ(serviceURL(1), L"http://dev.test:8080/account-service");
  EXPECT_EQ(serviceURL(2), L"http://dev.test:8080/briefing-service");
  EXPECT_EQ(serviceURL(3), L"http://dev.test:8080/flight-notification-service");
  EXPECT_EQ(serviceURL(4), L"http://dev.test:8080/met-service");
}

TEST_F(ServiceUrl, NumbersTheServicesAsRequestsGiveThem) {
  EXPECT_EQ(service::reference, 0);
  EXPECT_EQ(service::account, 1);
  EXPECT_EQ(service::briefing, 2);
  EXPECT_EQ(service::flightNotification, 3);
  EXPECT_EQ(service::met, 4);
}

TEST_F(ServiceUrl, IsTheBareBaseForAnUnknownService) {
  for (const std::int32_t unknown : {5, -1, 100, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(serviceURL(unknown), L"http://dev.test:8080");
  }
  config.Mode(2);
  EXPECT_EQ(serviceURL(5), L"https://trial.test/naips");
}

TEST_F(ServiceUrl, GoesToTheDeveloperHostInModeZeroWhateverUseProxySays) {
  config.UseProxy(true);
  EXPECT_EQ(serviceURL(1), L"http://dev.test:8080/account-service");
}

TEST_F(ServiceUrl, GoesToTheProductionHostOverHttpsInModeOne) {
  config.Mode(1);
  EXPECT_EQ(serviceURL(1), L"https://production.test/naips/account-service");
}

TEST_F(ServiceUrl, GoesToTheRelayingProxyOverHttpInModeOneWithUseProxy) {
  config.Mode(1);
  config.UseProxy(true);
  EXPECT_EQ(serviceURL(3), L"http://relay.test/naips/flight-notification-service");
}

TEST_F(ServiceUrl, GoesToTheTestHostInModeTwoWhateverUseProxySays) {
  config.Mode(2);
  EXPECT_EQ(serviceURL(2), L"https://trial.test/naips/briefing-service");
  config.UseProxy(true);
  EXPECT_EQ(serviceURL(2), L"https://trial.test/naips/briefing-service");
}

TEST_F(ServiceUrl, HasNoBaseInAnyOtherMode) {
  for (const std::int32_t mode : {3, 5, -1, std::numeric_limits<std::int32_t>::max()}) {
    config.Mode(mode);
    for (const bool useProxy : {false, true}) {
      config.UseProxy(useProxy);
      EXPECT_EQ(serviceURL(1), L"/account-service");
      EXPECT_EQ(serviceURL(9), L"");
    }
  }
}

}  // namespace
}  // namespace ktpnaips
