#pragma once

namespace ktpnaips::test {

/// Makes one allocation of this thread fail, the one that `before` others come before, unless the
/// scope ends first.
class FailingAllocation {
 public:
  explicit FailingAllocation(int before = 0);
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  /// True once the allocation has been made to fail.
  [[nodiscard]] bool hasFailed() const;
};

}  // namespace ktpnaips::test
