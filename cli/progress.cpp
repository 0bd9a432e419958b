#include "cli/progress.h"

#include "cli/messages.h"
#include "cli/text_output.h"

#include <ktpnaips/platform/terminal.h>

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>

namespace cli {

namespace {

/// "[#####.....] 6 of 12: what", of which 5 are done.
std::string bar(std::size_t count, std::size_t total, const std::string& what) {
  constexpr std::size_t width = 24;
  const std::size_t done = std::min(width, (count - 1) * width / std::max<std::size_t>(total, 1));
  return fmt::format("[{:#<{}}{:.<{}}] {} of {}: {}", "", done, "", width - done, count, total,
                     what);
}

/// The text within the terminal's width, so that one line can be rewritten.
std::string cut(std::string text) {
  constexpr std::size_t longest = 78;
  while (widthOf(text) > longest) text.pop_back();
  return text;
}

}  // namespace

Progress::Progress(std::size_t total, bool isShown)
    : total_(total), isShown_(isShown), isRewritten_(ktpnaips::terminal::canAsk()) {}

Progress::~Progress() {
  clear();
}

void Progress::next(const std::string& what) {
  ++count_;
  if (!isShown_) return;
  clear();
  const std::string line = isRewritten_
                               ? cut(bar(count_, total_, what))
                               : fmt::format("Fetching {} of {}: {}", count_, total_, what);
  writeMessage(line + (isRewritten_ ? "" : "\n"));
  if (isRewritten_) width_ = widthOf(line);
  std::fflush(stderr);
}

void Progress::clear() {
  if (width_ > 0) writeMessage(fmt::format("\r{:{}}\r", "", width_));
  width_ = 0;
}

}  // namespace cli
