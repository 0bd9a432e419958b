#include "cli/standard_output.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace cli {
namespace {

/// What stopped the output; 0 for nothing.
int& firstError() {
  static int error = 0;
  return error;
}

}  // namespace

void writeOutput(std::string_view text) {
  if (firstError() != 0) return;
  errno = 0;
  if (std::fwrite(text.data(), 1, text.size(), stdout) < text.size()) {
    firstError() = errno != 0 ? errno : EIO;
  }
}

std::string finishOutput() {
  errno = 0;
  if (std::fflush(stdout) != 0 && firstError() == 0) firstError() = errno != 0 ? errno : EIO;
  if (firstError() == 0 || firstError() == EPIPE) return {};
  return std::generic_category().message(firstError());
}

}  // namespace cli
