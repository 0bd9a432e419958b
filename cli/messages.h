#pragma once

#include <string_view>

/// What a person is told on standard error.
namespace cli {

/// Writes a line.
void complain(std::string_view text);

/// Writes the sentence that says why naips did not do what it was asked, behind its name.
void complainOfError(std::string_view sentence);

}  // namespace cli
