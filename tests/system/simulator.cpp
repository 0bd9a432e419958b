#include "tests/system/simulator.h"

#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/platform/terminal.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <mutex>
#include <optional>
#include <stdexcept>
#include <utility>

#include "tests/support/data_folder.h"

namespace simulator {
namespace {

/// Asks the simulator itself; its answer. Wine on a busy machine loses one now and then.
std::string control(std::string_view what, std::string_view body = {}) {
  const std::wstring url = L"http://simulator/control/" + ktpnaips::text::fromUtf8(what);
  std::string answer;
  for (int attempt = 0; attempt < 3 && answer.empty(); ++attempt) {
    const auto sent = ktpnaips::winInet::winInetSend(url, L"", body);
    answer = sent.headers + sent.body;
  }
  return answer;
}

/// Products of the exchanges go where they are removed.
class OwnDataFolder : public testing::Environment {
 public:
  void SetUp() override { folder_.emplace(); }
  void TearDown() override { folder_.reset(); }

 private:
  std::optional<ktpnaips::test::DataFolder> folder_;
};

[[maybe_unused]] const testing::Environment* const ownDataFolder =
    testing::AddGlobalTestEnvironment(new OwnDataFolder);  // owned by GoogleTest

}  // namespace

std::string environment(const char* name) {
  auto value = ktpnaips::terminal::environment(name);
  if (!value)
    throw std::runtime_error(std::string("run this program as its test does: no ") + name);
  return *std::move(value);
}

std::wstring address(const std::string& certificate) {
  const std::string name = certificate.empty() ? "" : "_" + certificate;
  return ktpnaips::text::fromUtf8(environment(("NAIPS_SIMULATOR" + name).c_str()));
}

std::wstring authorityFile() {
  return ktpnaips::text::fromUtf8(environment("NAIPS_SIMULATOR_CA"));
}

std::string squidAddress() {
  return environment("NAIPS_SQUID");
}

void use(bool overHttp) {
  static std::once_flag connected;
  std::call_once(connected, [] {
    ktpnaips::Deployment deployment;
    deployment.connectTo = address();
    deployment.caFile = authorityFile();
    trustAuthority();
    ktpnaips::Deployment::use(std::move(deployment));
  });
  ktpnaips::NAIPSConfig config;
  config.Mode(1);
  config.UseProxy(overHttp);
  config.UserName(user);
  config.Password(password);
}

Fault::Fault(std::string_view name) {
  control("fault", name);
}

Fault::~Fault() {
  control("fault");
}

std::size_t requestCount() {
  return std::stoul(control("count"));
}

std::string lastRequest() {
  return control("last");
}

}  // namespace simulator
