#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/torture/failing_step.h"
#include "tests/torture/scenario.h"
#include "tests/torture/seen.h"

namespace ktpnaips::test {

/// What came of a call whose step failed.
struct Iteration {
  StepsTaken steps;
  std::string outcome;
  std::vector<std::string> problems;
};

/// Judges what a host sees by the rules.
class Judge {
 public:
  explicit Judge(const Scenario& scenario) : scenario_(scenario) {}

  /// What an undisturbed call looks like, and what it sends.
  void expect(const Seen& seen, const std::string& request) {
    expected_ = seen;
    request_ = request;
  }

  /// Judges a call that nothing disturbed.
  void judgeUndisturbed(const Seen& seen, const std::string& which, Iteration& result) const;
  /// Judges the call in which the failure happened.
  void judge(const Seen& seen, const Failure& failure, Iteration& result) const;
  /// Judges what the service got: of the calls before, of the one that failed and of the next.
  void judgeRequests(const std::vector<std::string>& requests, std::size_t before,
                     const Seen& failed, Iteration& result) const;

 private:
  using Complain = std::function<void(const std::string&)>;

  [[nodiscard]] std::wstring trace() const;
  void judgeFiles(const Seen& seen, bool mayBeEmpty, const Complain& complain) const;
  [[nodiscard]] bool isDue(const std::wstring& report, bool isLater, const StepsTaken& steps,
                           const Failure& failure) const;

  const Scenario& scenario_;
  Seen expected_;
  std::string request_;
};

}  // namespace ktpnaips::test
