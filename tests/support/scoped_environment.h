#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace ktpnaips::test {

/// Sets an environment variable, or removes it, until the end of the scope.
class ScopedEnvironment {
 public:
  ScopedEnvironment(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* const old = std::getenv(name)) old_ = old;
    assign(value);
  }
  ~ScopedEnvironment() { assign(old_); }
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

 private:
  void assign(const std::optional<std::string>& value) const {
    if (value)
      ::setenv(name_, value->c_str(), 1);
    else
      ::unsetenv(name_);
  }

  const char* name_;
  std::optional<std::string> old_;
};

}  // namespace ktpnaips::test
