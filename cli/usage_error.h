#pragma once

#include <stdexcept>

namespace cli {

/// The command line, a file named on it or its content cannot be used: nothing has been sent.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace cli
