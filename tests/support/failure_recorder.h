#pragma once

#include <ktpnaips/core/failure_report.h>

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips::test {

/// Collects the reports of unexpected failures until the end of the scope.
class FailureRecorder {
 public:
  FailureRecorder() {
    setFailureReporter([this](std::wstring_view report) {
      const std::lock_guard lock(mutex_);
      reports_.emplace_back(report);
    });
  }
  ~FailureRecorder() { setFailureReporter({}); }
  FailureRecorder(const FailureRecorder&) = delete;
  FailureRecorder& operator=(const FailureRecorder&) = delete;

  /// The reports so far, oldest first.
  [[nodiscard]] std::vector<std::wstring> reports() const {
    const std::lock_guard lock(mutex_);
    return reports_;
  }

 private:
  mutable std::mutex mutex_;
  std::vector<std::wstring> reports_;
};

using Reports = std::vector<std::wstring>;

}  // namespace ktpnaips::test
