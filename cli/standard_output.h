#pragma once

#include <string>
#include <string_view>

/// Standard output, where nothing is lost in silence.
namespace cli {

/// Writes a text as it stands. Once a write has failed, nothing more is written.
void writeOutput(std::string_view text);

/// Writes what is still kept back. Returns why something could not be written, as the system says
/// it; an empty text when all was, or when the reader has gone away.
std::string finishOutput();

}  // namespace cli
