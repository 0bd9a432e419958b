#pragma once

#include "cli/json.h"

#include <cstddef>
#include <vector>

namespace cli {

/// What became of each of several requests, kept as it stands in JSON.
class Outcomes {
 public:
  /// `outcome` is the outcome of a response as an object; `fields` sets its own members.
  void add(const Json& outcome, const JsonMembers& fields = {});

  [[nodiscard]] const std::vector<WrittenJson>& written() const { return written_; }
  [[nodiscard]] std::size_t failed() const { return failed_; }
  /// The outcome of the first request that failed.
  [[nodiscard]] const Json& firstFailed() const { return firstFailed_; }

 private:
  std::vector<WrittenJson> written_;
  std::size_t failed_ = 0;
  Json firstFailed_;
};

}  // namespace cli
