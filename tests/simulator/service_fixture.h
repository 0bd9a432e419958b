#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/service.h"
#include "tests/simulator/client.h"

namespace simtest {

// A folder that is removed with its content.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// An envelope around a body whose elements have the prefix "ndd".
std::string envelope(std::string_view body,
                     std::string_view schemaNamespace = sim::defaultSchemaNamespace);

// A request element of the documented account with its children.
std::string request(std::string_view name, std::string_view children);

class ServiceTest : public ::testing::Test {
 protected:
  // The options of the service, which starts when it is first asked for.
  sim::Options options;
  sim::Service& service();

  Reply post(std::string_view target, std::string_view body);
  Reply postTls(std::string_view target, std::string_view body);
  // The answer document to a request element posted to a service path.
  std::string answer(std::string_view target, std::string_view requestElement);

  void SetUp() override;

 private:
  TemporaryFolder folder_;
  std::optional<sim::Service> service_;
};

}  // namespace simtest
