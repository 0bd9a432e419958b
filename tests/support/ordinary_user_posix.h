#pragma once

#include <unistd.h>

#include <exception>
#include <stdexcept>

#include "tests/support/scoped_environment.h"

namespace ktpnaips::test {

/// Whoever runs the tests is an ordinary user until the end of the scope, whose folder of temporary
/// files is /tmp: missing rights, which root would not notice, then show.
class OrdinaryUser {
 public:
  OrdinaryUser() {
    if (isRoot_ && ::seteuid(nobody) != 0) throw std::runtime_error("cannot be an ordinary user");
  }
  ~OrdinaryUser() {
    if (isRoot_ && ::seteuid(0) != 0) std::terminate();
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static constexpr uid_t nobody = 65534;
  bool isRoot_ = ::geteuid() == 0;
  ScopedEnvironment temporaryFolder_{"TMPDIR", "/tmp"};
};

}  // namespace ktpnaips::test
