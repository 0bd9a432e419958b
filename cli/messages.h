#pragma once

#include <string_view>

/// What a person is told on standard error.
namespace cli {

/// Writes a text as it stands, or not: standard error may be full or gone.
void writeMessage(std::string_view text);

/// Writes a line, in which nothing is a secret or acted on by a terminal.
void complain(std::string_view text);

/// Writes the sentence that says why naips did not do what it was asked, behind its name.
void complainOfError(std::string_view sentence);

}  // namespace cli
