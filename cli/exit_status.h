#pragma once

namespace cli {

/// What a script learns from the exit status.
enum ExitStatus : int {
  success = 0,
  serviceError = 1,    ///< the response's `Error` is true
  unusable = 2,        ///< the command line or a file named on it; nothing was sent
  internalFailure = 3  ///< an unexpected failure was reported
};

}  // namespace cli
