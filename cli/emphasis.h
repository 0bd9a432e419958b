#pragma once

#include <ktpnaips/platform/terminal.h>

#include <string>
#include <string_view>

namespace cli {

enum class Emphasis { heading, alarm };

/// The text as the stream shows it with this emphasis: in bold, an alarm in red too, where a
/// terminal shows colours and `NO_COLOR` is not set; unchanged elsewhere.
std::string emphasised(ktpnaips::terminal::Stream stream, Emphasis emphasis, std::string_view text);

}  // namespace cli
