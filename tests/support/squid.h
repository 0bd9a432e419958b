#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <string>

namespace ktpnaips::test {

/// A squid on a free loopback port that asks for the account "pilot", password "secret 1".
class Squid {
 public:
  Squid();
  ~Squid();
  Squid(const Squid&) = delete;
  Squid& operator=(const Squid&) = delete;

  [[nodiscard]] std::string url() const { return "http://127.0.0.1:" + std::to_string(port_); }

 private:
  void writeConfiguration() const;
  void start();
  void waitUntilItListens() const;

  std::filesystem::path folder_;
  std::uint16_t port_;
  pid_t process_ = -1;
};

}  // namespace ktpnaips::test
