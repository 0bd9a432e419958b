#pragma once

#include <ktpnaips/core/deployment.h>

#include <sys/types.h>

#include <filesystem>
#include <string>

#include "tests/torture/failing_step.h"
#include "tests/torture/scenario.h"
#include "tests/torture/seen.h"

namespace ktpnaips::test {

/// What the calls of the tests need of the process that makes them.
void prepareCalls(const Scenario& scenario, const Deployment& deployment);

/// The first two calls of a process.
struct FirstCalls {
  Seen failed;
  StepsTaken steps;      ///< of the call that failed
  std::string deniedTo;  ///< the library whose allocation failed, as in "libcurl.so.4"
  Seen after;
  std::string end;  ///< what the process died of; empty when it did not
};

/// Makes processes that have used nothing yet. They are forked from one that was forked itself
/// before any test.
class FreshProcesses {
 public:
  FreshProcesses();
  ~FreshProcesses();
  FreshProcesses(const FreshProcesses&) = delete;
  FreshProcesses& operator=(const FreshProcesses&) = delete;

  /// The first calls of a new process: one with that failure, and one that nothing disturbs.
  [[nodiscard]] FirstCalls calls(const Scenario& scenario, const Deployment& deployment,
                                 const std::filesystem::path& dataFolder, const Failure& failure);

 private:
  pid_t origin_ = 0;
  int socket_ = -1;
};

/// Those of this run of the tests.
FreshProcesses& freshProcesses();

}  // namespace ktpnaips::test
