#include <ktpnaips/core/deployment.h>
#include <ktpnaips/platform/lasting.h>

#include <utility>

namespace ktpnaips {
namespace {

Deployment& inUse() {
  static platform::Lasting<Deployment> deployment;
  return *deployment;
}

}  // namespace

Deployment::Deployment()
    : developerHost(KTPNAIPS_DEVELOPER_HOST),
      productionHost(KTPNAIPS_PRODUCTION_HOST),
      testHost(KTPNAIPS_TEST_HOST),
      proxyHost(KTPNAIPS_PROXY_HOST),
      schemaNamespace(KTPNAIPS_SCHEMA_NAMESPACE) {}

const Deployment& Deployment::current() {
  return inUse();
}

void Deployment::use(Deployment deployment) {
  inUse() = std::move(deployment);
}

}  // namespace ktpnaips
