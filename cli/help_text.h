#pragma once

#include <CLI/App.hpp>

#include <string>

namespace cli {

/// What `--help` shows of a command. CLI11's own differs from version to version.
class HelpText : public CLI::FormatterBase {
 public:
  std::string make_help(const CLI::App* app, std::string name,
                        CLI::AppFormatMode mode) const override;
};

}  // namespace cli
