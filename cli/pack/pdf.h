#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// PDF files, made by an installed Chromium.
namespace cli::pack {

/// The program that is asked for, or the first of Chromium's usual names on the search path. Throws
/// `UsageError` when there is none.
std::filesystem::path findBrowser(const std::string& wanted);

/// Prints an HTML document into this file. Throws `std::runtime_error`.
void printToPdf(const std::filesystem::path& browser, std::string_view document,
                const std::filesystem::path& file);

}  // namespace cli::pack
