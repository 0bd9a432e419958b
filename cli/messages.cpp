#include "cli/messages.h"

#include "cli/emphasis.h"

#include <fmt/format.h>

#include <cstdio>

namespace cli {

using ktpnaips::terminal::Stream;

void complain(std::string_view text) {
  fmt::print(stderr, "{}\n", text);
}

void complainOfError(std::string_view sentence) {
  fmt::print(stderr, "{} {}\n", emphasised(Stream::error, Emphasis::alarm, "naips:"), sentence);
}

}  // namespace cli
