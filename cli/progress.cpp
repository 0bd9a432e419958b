#include "cli/progress.h"

#include "cli/text_output.h"

#include <ktpnaips/platform/terminal.h>

#include <fmt/format.h>

#include <cstdio>

namespace cli {

Progress::Progress(std::size_t total, bool isShown)
    : total_(total), isShown_(isShown), isRewritten_(ktpnaips::terminal::canAsk()) {}

Progress::~Progress() {
  clear();
}

void Progress::next(const std::string& what) {
  ++count_;
  if (!isShown_) return;
  clear();
  const std::string line = fmt::format("Fetching {} of {}: {}", count_, total_, what);
  fmt::print(stderr, "{}{}", line, isRewritten_ ? "" : "\n");
  if (isRewritten_) width_ = widthOf(line);
  std::fflush(stderr);
}

void Progress::clear() {
  if (width_ > 0) fmt::print(stderr, "\r{:{}}\r", "", width_);
  width_ = 0;
}

}  // namespace cli
