#include <ktpnaips/core/deployment.h>

#include <gtest/gtest.h>

#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

TEST(DeploymentData, NamesEveryHostByDefault) {
  const Deployment deployment;
  EXPECT_FALSE(deployment.developerHost.empty());
  EXPECT_FALSE(deployment.productionHost.empty());
  EXPECT_FALSE(deployment.testHost.empty());
  EXPECT_FALSE(deployment.proxyHost.empty());
}

TEST(DeploymentData, HasASchemaNamespaceWhosePathEndsInNaipsXsd) {
  EXPECT_TRUE(Deployment().schemaNamespace.ends_with(L"/naips/xsd"));
}

TEST(DeploymentData, NeitherRedirectsConnectionsNorReplacesIssuersByDefault) {
  EXPECT_EQ(Deployment().connectTo, L"");
  EXPECT_EQ(Deployment().caFile, L"");
}

TEST(DeploymentData, IsInUseWithItsDefaultsUntilReplaced) {
  EXPECT_EQ(Deployment::current().productionHost, Deployment().productionHost);
  EXPECT_EQ(Deployment::current().schemaNamespace, Deployment().schemaNamespace);
}

TEST(DeploymentData, CanBeReplaced) {
  Deployment other;
  other.productionHost = L"other.test";
  other.connectTo = L"127.0.0.1:1";
  const test::ScopedDeployment use(other);
  EXPECT_EQ(Deployment::current().productionHost, L"other.test");
  EXPECT_EQ(Deployment::current().connectTo, L"127.0.0.1:1");
}

}  // namespace
}  // namespace ktpnaips
