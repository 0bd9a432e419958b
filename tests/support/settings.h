#pragma once

#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/globals.h>

#include <utility>

namespace ktpnaips::test {

/// The settings of a new thread, until the end of the scope; what stood before comes back.
class FreshSettings {
 public:
  FreshSettings() : before_(std::exchange(Globals::settings(), {})) {}
  ~FreshSettings() { Globals::settings() = std::move(before_); }
  FreshSettings(const FreshSettings&) = delete;
  FreshSettings& operator=(const FreshSettings&) = delete;

 private:
  Globals::Settings before_;
};

/// Other deployment data, until the end of the scope.
class ScopedDeployment {
 public:
  explicit ScopedDeployment(Deployment deployment) : before_(Deployment::current()) {
    Deployment::use(std::move(deployment));
  }
  ~ScopedDeployment() { Deployment::use(before_); }
  ScopedDeployment(const ScopedDeployment&) = delete;
  ScopedDeployment& operator=(const ScopedDeployment&) = delete;

 private:
  Deployment before_;
};

}  // namespace ktpnaips::test
